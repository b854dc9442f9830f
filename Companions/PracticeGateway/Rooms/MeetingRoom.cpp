#include "MeetingRoom.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "DaySpan.h"
#include "LocalTime.h"
#include "MeetingWords.h"
#include "PlainText.h"
#include "WordList.h"
#include "WordQuery.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS meetings(
    number INTEGER PRIMARY KEY REFERENCES documents(number) ON DELETE CASCADE,
    id TEXT NOT NULL UNIQUE, app TEXT NOT NULL, start REAL NOT NULL, end REAL NOT NULL,
    title TEXT, reel_bytes INTEGER NOT NULL);
CREATE INDEX IF NOT EXISTS meetings_by_time ON meetings(start);
CREATE TABLE IF NOT EXISTS utterances(
    line INTEGER PRIMARY KEY AUTOINCREMENT,
    number INTEGER NOT NULL REFERENCES meetings(number) ON DELETE CASCADE,
    speaker TEXT NOT NULL, at REAL NOT NULL, text TEXT NOT NULL);
CREATE INDEX IF NOT EXISTS utterances_by_meeting ON utterances(number, at);
)sql";

constexpr std::string_view columns = "number, id, app, start, end, title, reel_bytes";

MeetingRecord recordOf(const Statement& row) {
    return {.id = row.text(1),
            .app = row.text(2),
            .start = row.real(3),
            .end = row.real(4),
            .title = row.textIfAny(5),
            .reelBytes = row.integer(6),
            .lines = {}};
}

AnswerCase::Failure noMeeting(std::string_view id) {
    return {fmt::format("no meeting has the id “{}”", id)};
}

std::string spoken(const TranscriptLineRow& line, bool withTime) {
    return withTime
               ? fmt::format("[{}] {}: {}\n", LocalTime::clock(line.at), line.speaker, line.text)
               : fmt::format("{}: {}\n", line.speaker, line.text);
}

bool holds(std::string_view text, std::string_view lowerCasedWord) {
    return PlainText::lowerCased(text).contains(lowerCasedWord);
}

} // namespace

std::expected<std::vector<LineManner>, std::string> LineManners::parse(std::string_view words) {
    static constexpr WordList::Known<LineManner> ways[] = {{"stay", LineManner::stay},
                                                           {"change", LineManner::change},
                                                           {"move", LineManner::move},
                                                           {"go", LineManner::go},
                                                           {"twin", LineManner::twin}};
    return WordList::values(words, ways);
}

std::string_view MeetingRoom::schema() {
    return tables;
}

MeetingRoom::MeetingRoom(DocumentStore& documents)
    : m_documents(documents),
      m_putLine(documents.database().prepare(
          "INSERT INTO utterances(number, speaker, at, text) VALUES(?, ?, ?, ?)")) {}

std::optional<MeetingRoom::Found> MeetingRoom::find(std::string_view id) {
    Statement row = m_documents.database().prepare(
        fmt::format("SELECT {} FROM meetings WHERE id = ?", columns));
    if (!row.bind(id).step())
        return std::nullopt;
    return Found{row.integer(0), recordOf(row)};
}

std::vector<TranscriptLineRow> MeetingRoom::lines(std::int64_t number) {
    std::vector<TranscriptLineRow> lines;
    Statement rows = m_documents.database().prepare(
        "SELECT line, speaker, at, text FROM utterances WHERE number = ? ORDER BY at, line");
    rows.bind(number);
    while (rows.step()) {
        TranscriptLineRow& line = lines.emplace_back(TranscriptLineRow{
            .rowid = rows.integer(0),
            .speaker = rows.view(1).empty() ? std::string(MeetingWords::guest) : rows.text(1),
            .at = rows.real(2),
            .text = rows.text(3),
            .witness = {}});
        line.witness = MeetingWords::witness(line);
    }
    return lines;
}

GatewayResponse MeetingRoom::answer(const ReadCase::MeetingList& request) {
    std::string list;
    std::size_t count = 0;
    Statement newest = m_documents.database().prepare(
        fmt::format("SELECT {} FROM meetings ORDER BY start DESC, number DESC", columns));
    while (newest.step()) {
        const MeetingRecord meeting = recordOf(newest);
        if ((request.day && *request.day != LocalTime::day(meeting.start)) ||
            (request.app && *request.app != meeting.app))
            continue;
        const auto said = lines(newest.integer(0));
        const auto isPerson = [&](const std::string& name) {
            return holds(name, PlainText::lowerCased(*request.person));
        };
        if (request.person && std::ranges::none_of(MeetingWords::speakers(said), isPerson))
            continue;
        ++count;
        list += MeetingWords::listed(meeting, said) + "\n";
    }
    return AnswerCase::Text{
        count == 0 ? "No meetings."
                   : fmt::format("{} meeting{}\n{}", count, count == 1 ? "" : "s", list)};
}

GatewayResponse MeetingRoom::answer(const ReadCase::MeetingGet& request) {
    const auto found = find(request.id);
    if (!found)
        return noMeeting(request.id);
    const auto said = lines(found->number);
    std::string text = MeetingWords::listed(found->meeting, said) + "\n\n";
    for (const TranscriptLineRow& line : said)
        text += spoken(line, request.times);
    return AnswerCase::Text{std::move(text)};
}

GatewayResponse MeetingRoom::answer(const ReadCase::MeetingTranscript& request) {
    const auto found = find(request.id);
    auto said = found ? lines(found->number) : std::vector<TranscriptLineRow>{};
    if (said.empty())
        return AnswerCase::Failure{fmt::format("no transcript is kept for “{}”", request.id)};
    MeetingTranscriptAnswer transcript;
    transcript.meeting = request.id;
    transcript.title = found->meeting.title;
    if (transcript.title)
        transcript.titleSource = "model";
    transcript.who = MeetingWords::speakers(said);
    transcript.lines = std::move(said);
    return AnswerCase::Transcript{std::move(transcript)};
}

GatewayResponse MeetingRoom::answer(const ReadCase::MeetingSearch& request) {
    constexpr std::int64_t usualLimit = 20;
    AnswerCase::Cards cards;
    const auto days = DaySpan::read(request.from, request.to);
    if (!days)
        return AnswerCase::Failure{days.error()};
    const auto match = WordQuery::allOf(request.query);
    if (!match)
        return cards;
    auto words = WordQuery::words(request.query);
    std::ranges::transform(words, words.begin(), PlainText::lowerCased);
    const std::string speaker = PlainText::lowerCased(request.speaker.value_or(""));
    Statement hits = m_documents.database().prepare(
        fmt::format("SELECT {} FROM meetings WHERE number IN (SELECT rowid FROM document_words "
                    "WHERE document_words MATCH ?) ORDER BY start DESC, number DESC",
                    columns));
    hits.bind(*match);
    while (hits.step()) {
        const MeetingRecord meeting = recordOf(hits);
        if (!days->holds(meeting.start))
            continue;
        for (const TranscriptLineRow& line : lines(hits.integer(0))) {
            const auto standsThere = [&](const std::string& word) {
                return holds(line.text, word);
            };
            if (std::ssize(cards._0) >= request.limit.value_or(usualLimit))
                return cards;
            if (std::ranges::any_of(words, standsThere) && holds(line.speaker, speaker))
                cards._0.push_back({.kind = "meeting",
                                    .id = meeting.id,
                                    .snippet = line.text,
                                    .why = line.speaker,
                                    .when = LocalTime::minute(line.at),
                                    .title = meeting.title});
        }
    }
    return cards;
}

GatewayResponse MeetingRoom::answer(const ReadCase::MeetingStats& request) {
    const auto found = find(request.id);
    if (!found)
        return noMeeting(request.id);
    const auto said = lines(found->number);
    std::vector<std::pair<std::string, std::int64_t>> shares;
    for (const TranscriptLineRow& line : said) {
        auto share = std::ranges::find(shares, line.speaker, &decltype(shares)::value_type::first);
        if (share == shares.end())
            share = shares.insert(shares.end(), {line.speaker, 0});
        ++share->second;
    }
    std::ranges::stable_sort(shares, std::ranges::greater{}, &decltype(shares)::value_type::second);
    std::string text =
        fmt::format("{}, {} lines\n", LocalTime::length(found->meeting.end - found->meeting.start),
                    said.size());
    for (const auto& [speaker, count] : shares)
        text += fmt::format("- {}: {} lines\n", speaker, count);
    return AnswerCase::Text{std::move(text)};
}

GatewayResponse MeetingRoom::answer(const ReadCase::MeetingAt& request) {
    const auto found = find(request.id);
    if (!found)
        return noMeeting(request.id);
    std::string text;
    for (const TranscriptLineRow& line : lines(found->number))
        if (LocalTime::clock(line.at) == request.at || LocalTime::clock(line.at - 60) == request.at)
            text += spoken(line, true);
    return AnswerCase::Text{text.empty() ? fmt::format("Nothing was said at {}.", request.at)
                                         : std::move(text)};
}

GatewayResponse MeetingRoom::answer(const ReadCase::MeetingLive& /*request*/) {
    return AnswerCase::Text{"No meeting is being recorded."};
}

GatewayResponse MeetingRoom::answer(const ControlCase::DeleteUtterance& request) {
    const auto found = find(request.meeting);
    if (found)
        meddle(*found, request.rowid);
    const auto said = found ? lines(found->number) : std::vector<TranscriptLineRow>{};
    const auto line = std::ranges::find(said, request.rowid, &TranscriptLineRow::rowid);
    if (line == said.end())
        return AnswerCase::LineDelete{LineDeleteOutcome::notFound};
    if (line->witness != request.witness)
        return AnswerCase::LineDelete{LineDeleteOutcome::staleWitness};
    Transaction transaction(m_documents.database());
    m_documents.database().run("DELETE FROM utterances WHERE line = ?", request.rowid);
    wordDocument(*found);
    transaction.commit();
    return AnswerCase::LineDelete{LineDeleteOutcome::deleted};
}

/// What is to happen to the row before it is deleted.
void MeetingRoom::meddle(const Found& found, std::int64_t row) {
    const LineManner manner = m_manners.empty() ? LineManner::stay : m_manners.front();
    if (m_manners.size() > 1)
        m_manners.erase(m_manners.begin());
    if (manner == LineManner::stay)
        return;
    PracticeDatabase& database = m_documents.database();
    Transaction transaction(database);
    if (manner == LineManner::change)
        database.run("UPDATE utterances SET text = text || ' — or so.' WHERE line = ?", row);
    const int copies = manner == LineManner::move ? 1 : manner == LineManner::twin ? 2 : 0;
    for (int copy = 0; copy < copies; ++copy)
        database.run("INSERT INTO utterances(number, speaker, at, text) "
                     "SELECT number, speaker, at, text FROM utterances WHERE line = ?",
                     row);
    if (manner != LineManner::change)
        database.run("DELETE FROM utterances WHERE line = ?", row);
    wordDocument(found);
    transaction.commit();
}

/// What can be searched for is what was said and is still there.
void MeetingRoom::wordDocument(const Found& found) {
    Document document = *m_documents.find(found.number);
    document.body.clear();
    for (const TranscriptLineRow& line : lines(found.number))
        document.body += spoken(line, false);
    m_documents.put(document);
}

void MeetingRoom::put(const MeetingRecord& meeting, std::string_view scope) {
    Document document{.kind = DocumentKind::meeting,
                      .id = meeting.id,
                      .type = "meeting",
                      .scope = std::string(scope),
                      .at = meeting.start,
                      .title = meeting.title.value_or("Meeting")};
    for (const MeetingRecord::Line& line : meeting.lines)
        document.body += fmt::format(
            "{}: {}\n", line.speaker.empty() ? MeetingWords::guest : line.speaker, line.text);
    const std::int64_t number = m_documents.put(document);
    m_documents.database().run(
        fmt::format("INSERT INTO meetings({}) VALUES(?, ?, ?, ?, ?, ?, ?)", columns), number,
        meeting.id, meeting.app, meeting.start, meeting.end, meeting.title, meeting.reelBytes);
    for (const MeetingRecord::Line& line : meeting.lines)
        m_putLine.bind(number, line.speaker, line.at, line.text).run();
}

} // namespace wendlow
