#include "Fill/WorkPlan.h"

#include <algorithm>
#include <utility>

#include "LocalTime.h"

namespace wendlow {
namespace {

constexpr double minute = 60;
constexpr double hour = 3600;
constexpr double daySeconds = 86400;

struct Program {
    std::string_view app;
    bool isBrowser;
    Attention attention;
};

// The first stand more often.
constexpr Program programs[] = {{"Terminal", false, Attention::work},
                                {"Cursor", false, Attention::ai},
                                {"Google Chrome", true, Attention::work},
                                {"Claude", false, Attention::ai},
                                {"Slack", false, Attention::humans},
                                {"Safari", true, Attention::work},
                                {"Mail", false, Attention::humans},
                                {"Xcode", false, Attention::work},
                                {"Google Chrome", true, Attention::scrolling},
                                {"Preview", false, Attention::work},
                                {"Numbers", false, Attention::work},
                                {"Calendar", false, Attention::work}};

constexpr std::string_view workSites[] = {
    "github.com",       "sqlite.org",        "docs.python.org",  "developer.mozilla.org",
    "en.wikipedia.org", "stackoverflow.com", "cppreference.com", "figma.com",
    "linear.app",       "maps.example.org",  "harbour.example",  "postgresql.org"};
constexpr std::string_view scrollingSites[] = {"news.ycombinator.com", "reddit.com", "youtube.com"};

constexpr std::string_view chapterTitles[] = {
    "{thing}: {part}",       "{thing} after {part}",
    "{part} with {person}",  "Why {thing} waits for {part}",
    "Putting {part} back",   "{thing} with {tool}",
    "Letters about {thing}", "Reading up on {part}"};

/// A number of seconds from `least` to `most`.
double lasting(Content& content, double least, double most) {
    return least + static_cast<double>(content.below(static_cast<std::uint64_t>(most - least)));
}

const Program& draw(Content& content) {
    const auto place =
        std::min(content.below(std::size(programs)), content.below(std::size(programs)));
    return programs[place];
}

/// In this program from one time to another; the day and the chapter are still to be said.
Activity activityIn(Content& content, const Program& program, double start, double end) {
    Activity activity{.day = {},
                      .start = start,
                      .end = end,
                      .app = std::string(program.app),
                      .isBrowser = program.isBrowser,
                      .attention = program.attention};
    if (program.attention == Attention::scrolling)
        activity.site = content.pick(scrollingSites);
    else if (program.isBrowser)
        activity.site = content.pick(workSites);
    return activity;
}

/// When the person is at work on a day that is so many days before `now`, as far as it is past.
struct WorkingHours {
    std::string day;
    double start = 0;
    double end = 0;
};

WorkingHours workingHours(double now, int ago) {
    // From noon to noon, which no change of the clocks carries into another day.
    const double noon =
        LocalTime::startOf(LocalTime::day(now)).value_or(now) + daySeconds / 2 - ago * daySeconds;
    std::string day = LocalTime::day(noon);
    const double midnight = LocalTime::startOf(day).value_or(noon - daySeconds / 2);
    const int weekday = LocalTime::weekday(noon);
    const bool free = weekday == 0 || weekday == 6;
    double start = midnight + (free ? 15 : 8) * hour;
    const double end = std::min(midnight + (free ? 17 : 18) * hour, now);
    // Whoever looks in the morning is shown something of today too.
    if (ago == 0)
        start = std::min(start, std::max(midnight, now - 5 * hour));
    return {std::move(day), start, end};
}

class Planner {
public:
    Planner(WorkPlan& plan, std::string_view stream) : m_plan(plan), m_content(stream) {}

    void day(const std::string& name, double start, double end) {
        for (double at = start; at < end;) {
            const double until = std::min(at + lasting(m_content, 35 * minute, 110 * minute), end);
            chapter(name, at, until);
            // A pause, sometimes a long one.
            at = until + lasting(m_content, 3 * minute, m_content.oneIn(3) ? hour : 12 * minute);
        }
    }

private:
    void chapter(const std::string& day, double start, double end) {
        const Project& project = m_content.project();
        const auto number = static_cast<std::int64_t>(m_plan.chapters.size()) + m_plan.firstChapter;
        m_plan.chapters.push_back({{.number = number,
                                    .day = day,
                                    .title = m_content.filled(m_content.pick(chapterTitles)),
                                    .start = start,
                                    .end = end},
                                   &project});
        for (double at = start; at < end;) {
            const Program& program = draw(m_content);
            const bool scrolling = program.attention == Attention::scrolling;
            const double until = std::min(
                at + lasting(m_content, minute, scrolling ? 6 * minute : 22 * minute), end);
            Activity& activity =
                m_plan.activities.emplace_back(activityIn(m_content, program, at, until));
            activity.day = day;
            activity.chapter = number;
            if (program.attention == Attention::ai && m_content.oneIn(2))
                alone(activity, end);
            at = until + static_cast<double>(m_content.below(20));
        }
    }

    /// An AI goes on by itself while the person is elsewhere.
    void alone(Activity activity, double latest) {
        activity.start = activity.end;
        activity.end = std::min(activity.start + lasting(m_content, minute, 25 * minute), latest);
        activity.attended = false;
        if (activity.end > activity.start)
            m_plan.activities.push_back(std::move(activity));
    }

    WorkPlan& m_plan;
    Content m_content;
};

} // namespace

WorkPlan WorkPlan::of(double now, int days) {
    WorkPlan plan;
    Planner planner(plan, "days");
    for (int ago = days - 1; ago >= 0; --ago) {
        const auto [day, start, end] = workingHours(now, ago);
        planner.day(day, start, end);
    }
    std::ranges::stable_sort(plan.activities, {}, &Activity::start);
    return plan;
}

WorkPlan WorkPlan::after(double last, std::int64_t lastChapter, double now) {
    constexpr int mostDays = 60;
    const std::string lastDay = LocalTime::day(last);
    WorkPlan plan{.firstChapter = lastChapter + 1, .chapters = {}, .activities = {}};
    Planner planner(plan, "days after " + lastDay);
    for (int ago = mostDays; ago >= 0; --ago) {
        auto [day, start, end] = workingHours(now, ago);
        start = std::max(start, last);
        // What is shorter than a minute is nothing that anybody looks at.
        if (day >= lastDay && end - start >= minute)
            planner.day(day, start, end);
    }
    std::ranges::stable_sort(plan.activities, {}, &Activity::start);
    return plan;
}

Activity WorkPlan::next(const Activity& last, double start, double end) {
    Content content(last.app + LocalTime::minute(start));
    Activity activity = activityIn(content, draw(content), start, end);
    activity.day = LocalTime::day(start);
    activity.chapter = activity.day == last.day ? last.chapter : 0;
    return activity;
}

} // namespace wendlow
