#include "LedgerRoom.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

#include <fmt/format.h>

#include "LedgerFigures.h"
#include "LocalTime.h"
#include "RawString.h"

namespace wendlow {
namespace {

constexpr double daySeconds = 86400;

enum class TallyMode { apps, sites, days };
BOOST_DESCRIBE_ENUM(TallyMode, apps, sites, days)

std::optional<std::string> nameOf(const Activity& activity, TallyMode mode) {
    switch (mode) {
    case TallyMode::apps:
        return activity.app;
    case TallyMode::sites:
        return activity.site;
    case TallyMode::days:
        return activity.day;
    }
    return std::nullopt;
}

std::string hours(std::int64_t seconds) {
    return LocalTime::length(static_cast<double>(seconds));
}

} // namespace

LedgerRoom::LedgerRoom(ActivityLedger& ledger, KeepRoom& keep, DocumentStore& documents,
                       Clock clock)
    : m_ledger(ledger), m_keep(keep), m_documents(documents), m_clock(std::move(clock)) {}

std::expected<LedgerRoom::Span, std::string> LedgerRoom::spanOf(const std::string& text) {
    const double now = secondsOf(m_clock());
    const std::string today = LocalTime::day(now);
    if (text == "today")
        return Span(today, today);
    if (text == "yesterday") {
        // Noon of the day before: no change of the clocks reaches it.
        const std::string day =
            LocalTime::day(LocalTime::startOf(today).value_or(now) - daySeconds / 2);
        return Span(day, day);
    }
    if (text == "week")
        return Span(LocalTime::day(now - 6 * daySeconds), today);
    if (text == "month")
        return Span(LocalTime::day(now - 29 * daySeconds), today);
    if (text == "all")
        return m_ledger.days().value_or(Span(today, today));
    const auto dots = text.find("..");
    Span days(text.substr(0, dots), dots == std::string::npos ? text : text.substr(dots + 2));
    if (!LocalTime::startOf(days.first) || !LocalTime::startOf(days.second))
        return std::unexpected(fmt::format("“{}” is no span; those are today, yesterday, week, "
                                           "month, all, a day, or two days with “..” between them",
                                           text));
    return days;
}

GatewayResponse LedgerRoom::answer(const ReadCase::Tally& request) {
    const auto mode = fromRawString<TallyMode>(request.mode.value_or("apps"));
    if (!mode)
        return AnswerCase::Failure{
            fmt::format("“{}” is no way to count hours; those are apps, sites and days",
                        request.mode.value_or(""))};
    const auto days = spanOf(request.span);
    if (!days)
        return AnswerCase::Failure{days.error()};
    std::map<std::string, std::int64_t> seconds;
    for (const Activity& activity : m_ledger.between(days->first, days->second)) {
        const auto name = nameOf(activity, *mode);
        if (name &&
            (!request.entity || *request.entity == activity.app || request.entity == activity.site))
            seconds[*name] += activity.seconds();
    }
    std::vector<std::pair<std::int64_t, std::string>> rows;
    rows.reserve(seconds.size());
    for (const auto& [name, count] : seconds)
        rows.emplace_back(-count, name);
    if (*mode != TallyMode::days)
        std::ranges::sort(rows);
    std::string text = fmt::format("{} to {}\n", days->first, days->second);
    for (const auto& [count, name] : rows)
        text += fmt::format("- {}: {}\n", name, hours(-count));
    return AnswerCase::Text{std::move(text)};
}

GatewayResponse LedgerRoom::answer(const ReadCase::StorageStats& request) {
    constexpr std::int64_t most = 3660;
    const auto count = std::clamp<std::int64_t>(request.days.value_or(7), 1, most);
    const double now = secondsOf(m_clock());
    Statement rows = m_documents.database().prepare(
        "SELECT day, count(*), sum(bytes) FROM moments JOIN documents USING(number) "
        "WHERE framed AND day > ? GROUP BY day ORDER BY day DESC");
    const std::string before = LocalTime::day(now - static_cast<double>(count) * daySeconds);
    rows.bind(before);
    const DiskUsed used = m_keep.diskUsed();
    std::string text = fmt::format(
        "text {} bytes, transcripts {} bytes, meeting pictures {} bytes, pictures {} bytes\n",
        used.text, used.transcripts, used.reel, used.frames.value_or(0));
    while (rows.step())
        text += fmt::format("- {}: {} pictures, {} bytes\n", rows.view(0), rows.integer(1),
                            rows.integer(2));
    return AnswerCase::Text{std::move(text)};
}

GatewayResponse LedgerRoom::answer(const ReadCase::RecallStats& /*request*/) {
    return AnswerCase::Text{"This is the practice gateway; it does not count what is asked of it."};
}

GatewayResponse LedgerRoom::answer(const ReadCase::Coverage& request) {
    const auto days = spanOf(request.span.value_or("all"));
    if (!days)
        return AnswerCase::Failure{days.error()};
    const auto activities = m_ledger.between(days->first, days->second);
    const SpanHoursReport report = LedgerFigures::span(days->first, days->second, activities);
    const auto first = LocalTime::startOf(days->first);
    const auto last = LocalTime::startOf(days->second);
    // Half a day more than the difference, since a day may have an hour more or less.
    const auto all = static_cast<std::int64_t>((*last - *first) / daySeconds + 1.5);
    return AnswerCase::Text{fmt::format("{} to {}: something is known of {} of {} days, {} in all",
                                        days->first, days->second, report.days.size(),
                                        std::max<std::int64_t>(all, 0), hours(report.active))};
}

} // namespace wendlow
