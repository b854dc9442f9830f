#include "DayRoom.h"

#include <algorithm>
#include <ctime>
#include <map>
#include <utility>

#include <fmt/format.h>

#include "LedgerFigures.h"
#include "LocalTime.h"

namespace wendlow {
namespace {

constexpr std::string_view form = "is not a day; a day is written as 2026-11-21";

/// What `answering` makes of a day, or that it is none.
template<class Answering>
GatewayResponse ofDay(const std::string& day, const Answering& answering) {
    if (!LocalTime::startOf(day))
        return AnswerCase::Failure{fmt::format("“{}” {}", day, form)};
    return answering();
}

} // namespace

DayRoom::DayRoom(DocumentStore& documents, ActivityLedger& ledger, KeepRoom& keep, Clock clock)
    : m_documents(documents), m_ledger(ledger), m_keep(keep), m_clock(std::move(clock)),
      m_started(secondsOf(m_clock())) {}

GatewayResponse DayRoom::answer(const ReadCase::GetDay& request) {
    return ofDay(request.day, [&] {
        const auto chapters = m_ledger.chaptersOf(request.day);
        std::string text;
        for (const Chapter& chapter : chapters)
            text += fmt::format("- {}–{} · {} · c{}\n", LocalTime::clock(chapter.start),
                                LocalTime::clock(chapter.end), chapter.title, chapter.number);
        return AnswerCase::Text{text.empty() ? fmt::format("Nothing is known of {}.", request.day)
                                             : std::move(text)};
    });
}

GatewayResponse DayRoom::answer(const ReadCase::DayCard& request) {
    return ofDay(request.day, [&] {
        const auto activities = m_ledger.of(request.day);
        if (activities.empty())
            return AnswerCase::Thing{};
        const DayPresence presence = LedgerFigures::presence(request.day, activities);
        std::string list;
        for (const auto& app : presence.apps)
            list += fmt::format("- {}: {}\n", app.app,
                                LocalTime::length(static_cast<double>(app.active)));
        return AnswerCase::Thing{
            Card{.kind = "day",
                 .id = request.day,
                 .snippet = std::move(list),
                 .why = LocalTime::length(static_cast<double>(presence.active)) + " at work",
                 .when = LocalTime::minute(activities.front().start),
                 .title = request.day}};
    });
}

GatewayResponse DayRoom::answer(const ReadCase::DayPresence& request) {
    return ofDay(request.day, [&] {
        auto activities = m_ledger.of(request.day);
        if (request.app)
            std::erase_if(activities,
                          [&](const Activity& activity) { return activity.app != *request.app; });
        return AnswerCase::Presence{LedgerFigures::presence(request.day, activities), request.app};
    });
}

GatewayResponse DayRoom::answer(const ReadCase::SpanHours& request) {
    return ofDay(request.from, [&] {
        return ofDay(request.to, [&] {
            return AnswerCase::SpanHours{LedgerFigures::span(
                request.from, request.to, m_ledger.between(request.from, request.to))};
        });
    });
}

GatewayResponse DayRoom::answer(const ReadCase::AllTime& /*request*/) {
    Statement figures = m_documents.database().prepare(
        "SELECT count(DISTINCT day), coalesce(sum((end - start) * attended), 0), "
        "coalesce(sum((end - start) * (1 - attended)), 0), (SELECT count(*) FROM moments), "
        "(SELECT count(*) FROM meetings) FROM activities");
    figures.step();
    const DiskUsed used = m_keep.diskUsed();
    constexpr double thousand = 1000;
    return AnswerCase::AllTime{
        {.moments = figures.integer(3),
         .meetings = figures.integer(4),
         .days = figures.integer(0),
         .yourWorkSeconds = figures.integer(1),
         .aiWorkSeconds = figures.integer(2),
         .storageBytes = used.text + used.transcripts + used.reel + used.frames.value_or(0),
         .cpuMs = static_cast<std::int64_t>(static_cast<double>(std::clock()) * thousand /
                                            CLOCKS_PER_SEC),
         .cpuWallMs = static_cast<std::int64_t>((secondsOf(m_clock()) - m_started) * thousand)}};
}

GatewayResponse DayRoom::answer(const ReadCase::DayLongestChapter& request) {
    return ofDay(request.day, [&] {
        const auto chapters = m_ledger.chaptersOf(request.day);
        const auto longest = std::ranges::max_element(
            chapters, {}, [](const Chapter& chapter) { return chapter.end - chapter.start; });
        if (longest == chapters.end())
            return AnswerCase::LongestChapter{};
        return AnswerCase::LongestChapter{LongestChapterReport{
            longest->title, static_cast<std::int64_t>(longest->end - longest->start)}};
    });
}

GatewayResponse DayRoom::answer(const ReadCase::DayStretches& request) {
    return ofDay(request.day, [&] {
        return AnswerCase::Stretches{
            LedgerFigures::stretches(request.day, m_ledger.of(request.day))};
    });
}

GatewayResponse DayRoom::answer(const ReadCase::DayTopSessions& request) {
    return ofDay(request.day, [&] {
        constexpr std::size_t shown = 5;
        std::map<std::int64_t, std::int64_t> seconds;
        for (const Activity& activity : m_ledger.of(request.day))
            seconds[activity.chapter] += activity.seconds();
        TopSessionsReport report{.day = request.day, .sessions = {}};
        for (const Chapter& chapter : m_ledger.chaptersOf(request.day))
            report.sessions.push_back(
                {chapter.title, seconds[chapter.number], fmt::format("c{}", chapter.number)});
        std::ranges::stable_sort(report.sessions, std::ranges::greater{},
                                 &TopSessionsReport::Session::seconds);
        report.sessions.resize(std::min(report.sessions.size(), shown));
        return AnswerCase::TopSessions{std::move(report)};
    });
}

GatewayResponse DayRoom::answer(const ReadCase::DayAttention& request) {
    return ofDay(request.day, [&] {
        return AnswerCase::Attention{
            LedgerFigures::attention(request.day, m_ledger.of(request.day))};
    });
}

GatewayResponse DayRoom::answer(const ReadCase::DayWeb& request) {
    return ofDay(request.day, [&] {
        return AnswerCase::Web{LedgerFigures::web(request.day, m_ledger.of(request.day))};
    });
}

} // namespace wendlow
