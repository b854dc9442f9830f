#include "LedgerFigures.h"

#include <algorithm>
#include <utility>

namespace wendlow::LedgerFigures {
namespace {

/// One after the other without too long a gap; of what a person attended.
struct Run {
    double start = 0;
    double end = 0;
    std::vector<DayStretchSlice> apps;

    std::int64_t seconds() const { return static_cast<std::int64_t>(end - start); }
};

/// The entry of this name, made at the end where it lacks.
template<class Entry>
Entry& entryOf(std::vector<Entry>& entries, std::string Entry::* name, const std::string& text) {
    const auto found = std::ranges::find(entries, text, name);
    if (found != entries.end())
        return *found;
    Entry& made = entries.emplace_back();
    made.*name = text;
    return made;
}

template<class Entry> void mostFirst(std::vector<Entry>& entries, std::int64_t Entry::* figure) {
    std::ranges::stable_sort(entries, std::ranges::greater{}, figure);
}

std::vector<Run> runs(std::span<const Activity> activities, double longestGap) {
    std::vector<Run> runs;
    for (const Activity& activity : activities) {
        if (!activity.attended)
            continue;
        if (runs.empty() || activity.start > runs.back().end + longestGap)
            runs.push_back({.start = activity.start, .end = activity.start, .apps = {}});
        Run& run = runs.back();
        run.end = std::max(run.end, activity.end);
        entryOf(run.apps, &DayStretchSlice::app, activity.app).seconds += activity.seconds();
    }
    for (Run& run : runs)
        mostFirst(run.apps, &DayStretchSlice::seconds);
    std::ranges::stable_sort(runs, std::ranges::greater{}, &Run::seconds);
    return runs;
}

void count(std::int64_t& attended, std::int64_t& unattended, const Activity& activity) {
    (activity.attended ? attended : unattended) += activity.seconds();
}

} // namespace

std::int64_t covered(std::span<const Activity> activities) {
    double seconds = 0;
    double end = 0;
    for (const Activity& activity : activities) {
        seconds += std::max(0.0, activity.end - std::max(activity.start, end));
        end = std::max(end, activity.end);
    }
    return static_cast<std::int64_t>(seconds);
}

DayPresence presence(std::string day, std::span<const Activity> activities) {
    DayPresence presence{.day = std::move(day), .apps = {}, .active = covered(activities)};
    for (const Activity& activity : activities) {
        auto& app = entryOf(presence.apps, &DayPresence::App::app, activity.app);
        count(app.attended, app.unattended, activity);
        app.active += activity.seconds();
        app.isBrowser |= activity.isBrowser;
        app.intervals.push_back(
            {activity.start, activity.end, activity.attended ? "attended" : "unattended"});
    }
    mostFirst(presence.apps, &DayPresence::App::active);
    return presence;
}

SpanHoursReport span(std::string from, std::string to, std::span<const Activity> activities) {
    SpanHoursReport report{.from = std::move(from),
                           .to = std::move(to),
                           .active = covered(activities),
                           .apps = {},
                           .days = {}};
    for (const Activity& activity : activities) {
        auto& app = entryOf(report.apps, &SpanHoursReport::App::app, activity.app);
        if (report.days.empty() || report.days.back().day != activity.day)
            report.days.push_back({.day = activity.day});
        count(app.attended, app.unattended, activity);
        count(report.days.back().attended, report.days.back().unattended, activity);
        count(report.attended, report.unattended, activity);
        app.active += activity.seconds();
    }
    mostFirst(report.apps, &SpanHoursReport::App::active);
    return report;
}

DayStretchReport stretches(std::string day, std::span<const Activity> activities) {
    constexpr double focusGap = 120;
    constexpr std::int64_t shortestFocus = 600;
    constexpr std::size_t shown = 5;
    constexpr double sittingGap = 900;
    DayStretchReport report{.day = std::move(day), .focus = {}};
    for (Run& run : runs(activities, focusGap)) {
        if (run.seconds() < shortestFocus)
            break;
        ++report.runCount;
        if (report.focus.size() < shown)
            report.focus.push_back({run.start, run.end, run.seconds(), std::move(run.apps)});
    }
    if (auto sittings = runs(activities, sittingGap); !sittings.empty()) {
        Run& longest = sittings.front();
        report.sitting = DayStretchSitting{longest.seconds(), longest.start, longest.end,
                                           std::move(longest.apps)};
    }
    return report;
}

AttentionReport attention(std::string day, std::span<const Activity> activities) {
    AttentionReport report{.day = std::move(day)};
    for (const Activity& activity : activities) {
        if (!activity.attended)
            continue;
        switch (activity.attention) {
        case Attention::work:
            break;
        case Attention::ai:
            report.aiSeconds += activity.seconds();
            break;
        case Attention::humans:
            report.humansSeconds += activity.seconds();
            break;
        case Attention::scrolling:
            report.scrollingSeconds += activity.seconds();
            ++report.scrollingGlances;
            break;
        }
    }
    return report;
}

WebReport web(std::string day, std::span<const Activity> activities) {
    WebReport report{.day = std::move(day), .sites = {}};
    for (const Activity& activity : activities) {
        if (!activity.isBrowser)
            continue;
        report.browserSeconds += activity.seconds();
        if (activity.site)
            entryOf(report.sites, &WebReport::Site::domain, *activity.site).seconds +=
                activity.seconds();
    }
    mostFirst(report.sites, &WebReport::Site::seconds);
    return report;
}

} // namespace wendlow::LedgerFigures
