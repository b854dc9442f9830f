#include "DashboardWords.h"

#include "Say.h"

#include <QDateTime>
#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace wendlow::Dashboard {

namespace {

constexpr std::int64_t minute = 60;
constexpr std::int64_t anHour = 3600;

Bar barOf(const std::string& name, std::int64_t active, std::int64_t top) {
    return {.name = {},
            .fraction = static_cast<double>(active) / static_cast<double>(top),
            .label = dashTime(active),
            .fullName = QString::fromStdString(name).trimmed(),
            .exact = exactTime(active)};
}

bool hasTime(std::int64_t active) {
    return active >= 1;
}

} // namespace

QString dashTime(std::int64_t seconds) {
    if (seconds < anHour)
        return say("{}m", seconds / minute);
    const std::int64_t hours = seconds / anHour;
    const std::int64_t over = seconds % anHour;
    return over < minute ? say("{}h", hours) : say("{}h {}m", hours, over / minute);
}

QString exactTime(std::int64_t seconds) {
    // The rest of a division has the sign of what is divided, so the parts are taken without it.
    const auto part = [seconds](std::int64_t unit, std::int64_t of) {
        const std::int64_t count = seconds / unit;
        return std::abs(of > 0 ? count % of : count);
    };
    QStringList parts;
    if (std::abs(seconds / anHour) > 0)
        parts.append(say("{}h", part(anHour, 0)));
    if (seconds / minute % minute != 0)
        parts.append(say("{}m", part(minute, minute)));
    if (seconds % minute != 0 || parts.isEmpty())
        parts.append(say("{}s", part(1, minute)));
    return (seconds < 0 ? u"−"_s : QString()) + parts.join(u' ');
}

QString dayPart(int hour) {
    struct Part {
        int first;
        int last;
        const char* words;
    };
    static constexpr Part parts[] = {
        {5, 7, sayLater("early morning")},   {8, 10, sayLater("mid morning")},
        {11, 11, sayLater("late morning")},  {12, 13, sayLater("early afternoon")},
        {14, 15, sayLater("mid afternoon")}, {16, 17, sayLater("late afternoon")},
        {18, 20, sayLater("evening")},       {21, 23, sayLater("late evening")},
    };
    for (const Part& part : parts)
        if (hour >= part.first && hour <= part.last)
            return say(part.words);
    return say("the small hours");
}

QString dayPartOf(double time) {
    // A hundred thousand years either way; a cast of more would be no number.
    constexpr double farthest = 3e12;
    if (!(std::abs(time) < farthest))
        return {};
    const auto moment = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(time)));
    return dayPart(moment.time().hour());
}

QString shortName(const std::string& name) {
    const QString whole = QString::fromStdString(name);
    const QStringList words = whole.simplified().split(u' ', Qt::SkipEmptyParts);
    return words.size() == 2 ? words.back() : whole.trimmed();
}

std::vector<Bar> appBars(std::span<const AppShare> top, std::size_t count) {
    std::vector<Bar> bars;
    if (top.empty() || top.front().active <= 0)
        return bars;
    for (const AppShare& app : top.first(std::min(count, top.size()))) {
        Bar& bar = bars.emplace_back(barOf(app.name, app.active, top.front().active));
        bar.name = shortName(app.name);
    }
    return bars;
}

std::vector<Bar> webBars(std::span<const WebSite> top, std::size_t count) {
    std::vector<Bar> bars;
    if (top.empty() || top.front().active <= 0)
        return bars;
    for (const WebSite& site : top.first(std::min(count, top.size()))) {
        Bar& bar = bars.emplace_back(barOf(site.domain, site.active, top.front().active));
        bar.name = bar.fullName;
        bar.label = dashTime(std::max(site.active, minute));
    }
    return bars;
}

std::vector<AppShare> listedApps(const Today& today) {
    std::vector<AppShare> listed;
    std::ranges::remove_copy_if(today.apps, std::back_inserter(listed), &AppShare::isBrowser);
    return listed;
}

DayCardFace appsFace(const std::optional<Today>& today) {
    using Kind = DayCardFace::Kind;
    if (!today)
        return {Kind::loading, {}};
    const bool any = std::ranges::any_of(
        today->apps, [](const AppShare& app) { return !app.isBrowser && hasTime(app.active); });
    return any ? DayCardFace{Kind::loaded, {}} : DayCardFace{Kind::empty, say("no app data")};
}

DayCardFace webFace(const std::optional<Web>& web) {
    using Kind = DayCardFace::Kind;
    if (!web)
        return {Kind::loading, {}};
    const bool any = std::ranges::any_of(web->sites, hasTime, &WebSite::active);
    return any ? DayCardFace{Kind::loaded, {}} : DayCardFace{Kind::empty, say("no web data")};
}

DayCardFace attentionFace(const std::optional<Attention>& attention) {
    using Kind = DayCardFace::Kind;
    const bool any = attention && (attention->aiSeconds != 0 || attention->humansSeconds != 0 ||
                                   attention->scrollingSeconds != 0);
    return any ? DayCardFace{Kind::loaded, {}} : DayCardFace{Kind::empty, say("no attention data")};
}

QString appsTitle(const std::optional<Today>& today) {
    if (appsFace(today).kind != DayCardFace::Kind::loaded)
        return say("apps");
    std::int64_t all = 0;
    for (const AppShare& app : listedApps(*today))
        all = sum(all, app.active);
    return say("apps") + u" · "_s + dashTime(all);
}

QString webTitle(const std::optional<Web>& web) {
    if (webFace(web).kind != DayCardFace::Kind::loaded)
        return say("web");
    return say("web") + u" · "_s + dashTime(web->browserSeconds);
}

} // namespace wendlow::Dashboard
