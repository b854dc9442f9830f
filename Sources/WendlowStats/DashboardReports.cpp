#include "DashboardReports.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <tuple>

namespace wendlow::Dashboard {

namespace {

void sortShares(std::vector<AppShare>& apps) {
    std::ranges::stable_sort(apps, [](const AppShare& one, const AppShare& other) {
        return std::tie(other.active, one.name) < std::tie(one.active, other.name);
    });
}

/// "Tuesday"; a text that is no day stays as it is.
std::string weekdayName(const std::string& day) {
    const QDate date = QDate::fromString(QString::fromStdString(day), Qt::ISODate);
    return date.isValid() ? QLocale::c().dayName(date.dayOfWeek()).toStdString() : day;
}

} // namespace

std::int64_t Attention::seconds(Bucket bucket) const {
    switch (bucket) {
    case Bucket::humans:
        return humansSeconds;
    case Bucket::ai:
        return aiSeconds;
    case Bucket::scrolling:
        return scrollingSeconds;
    }
    return 0;
}

std::array<Attention::Bucket, 3> Attention::ranked() const {
    std::array buckets{Bucket::humans, Bucket::ai, Bucket::scrolling};
    std::ranges::stable_sort(buckets, std::ranges::greater{},
                             [this](Bucket bucket) { return seconds(bucket); });
    return buckets;
}

Today todayOf(const DayPresence& report) {
    Today today{.active = report.active, .apps = {}};
    for (const DayPresence::App& app : report.apps) {
        today.attended = sum(today.attended, app.attended);
        today.unattended = sum(today.unattended, app.unattended);
        today.apps.push_back({app.app, app.active, app.isBrowser});
    }
    sortShares(today.apps);
    return today;
}

Week weekOf(const SpanHoursReport& report) {
    using Day = SpanHoursReport::Day;
    Week week{.attended = report.attended,
              .unattended = report.unattended,
              .active = report.active,
              .apps = {}};
    for (const SpanHoursReport::App& app : report.apps)
        week.apps.push_back({.name = app.app, .active = app.active});
    sortShares(week.apps);
    if (report.days.empty())
        return week;
    const Day& biggest = *std::ranges::max_element(report.days, {}, &Day::attended);
    week.biggestDay = {weekdayName(biggest.day), biggest.attended};
    const Day& peak = *std::ranges::max_element(report.days, {}, &Day::unattended);
    week.aiPeakDay = {weekdayName(peak.day), peak.unattended};
    return week;
}

std::vector<FocusRun> focusOf(const DayStretchReport& report) {
    std::vector<FocusRun> runs;
    for (const DayStretchReport::FocusRun& run : report.focus) {
        FocusRun& made = runs.emplace_back(FocusRun{
            .seconds = run.seconds, .apps = {}, .startedAt = run.start, .endedAt = run.end});
        for (const DayStretchSlice& slice : run.apps)
            made.apps.push_back({slice.app, slice.seconds});
    }
    return runs;
}

std::vector<Session> sessionsOf(const TopSessionsReport& report) {
    std::vector<Session> sessions;
    sessions.reserve(report.sessions.size());
    for (const auto& [title, seconds, chapterId] : report.sessions)
        sessions.push_back({title, seconds, chapterId});
    return sessions;
}

Attention attentionOf(const AttentionReport& report) {
    return {.aiSeconds = report.aiSeconds,
            .humansSeconds = report.humansSeconds,
            .scrollingSeconds = report.scrollingSeconds,
            .scrollingGlances = report.scrollingGlances};
}

Web webOf(const WebReport& report) {
    Web web{.browserSeconds = report.browserSeconds, .sites = {}};
    for (const auto& [domain, seconds] : report.sites)
        web.sites.push_back({.domain = domain, .active = seconds});
    return web;
}

std::vector<std::string> iconHosts(const Web& web) {
    constexpr std::size_t most = 8;
    std::vector<std::string> hosts;
    for (const WebSite& site : web.sites) {
        if (hosts.size() == most)
            break;
        hosts.push_back(site.domain);
    }
    return hosts;
}

void addIcons(Web& web, const std::map<std::string, WireData>& icons) {
    for (WebSite& site : web.sites)
        if (const auto icon = icons.find(site.domain); icon != icons.end())
            site.favicon = icon->second.bytes;
}

} // namespace wendlow::Dashboard
