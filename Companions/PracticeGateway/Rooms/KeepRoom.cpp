#include "KeepRoom.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {
namespace {

// A day waits in `purges` until it is cleared; one that cannot be cleared stays there.
constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS purges(day TEXT PRIMARY KEY, due REAL NOT NULL) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS locked_days(day TEXT PRIMARY KEY) WITHOUT ROWID;
)sql";

constexpr std::string_view frameKeep = "frameKeep";
constexpr std::string_view reelKeep = "reelKeep";

constexpr double countingTakes = 1.5; ///< seconds

constexpr std::string_view framed = "FROM moments JOIN documents USING(number) WHERE framed";

} // namespace

std::string_view KeepRoom::schema() {
    return tables;
}

KeepRoom::KeepRoom(DocumentStore& documents, Clock clock)
    : m_documents(documents), m_settings(documents.database()), m_clock(std::move(clock)) {}

GatewayResponse KeepRoom::answer(const ReadCase::FrameKeepState& /*request*/) {
    return AnswerCase::Flag{m_settings.flag(frameKeep, true)};
}

GatewayResponse KeepRoom::answer(const ReadCase::ReelKeepState& /*request*/) {
    return AnswerCase::Flag{m_settings.flag(reelKeep, true)};
}

bool KeepRoom::isCounted() {
    const double now = secondsOf(m_clock());
    if (!m_countedAt)
        m_countedAt = now + countingTakes;
    return now >= *m_countedAt;
}

GatewayResponse KeepRoom::answer(const ReadCase::FrameStats& /*request*/) {
    purgeWhatIsDue();
    const bool counted = isCounted();
    PracticeDatabase& database = m_documents.database();
    Statement kept =
        database.prepare(fmt::format("SELECT count(*), coalesce(sum(bytes), 0) {}", framed));
    kept.step();
    FrameStats stats{.screenshots = kept.integer(0)};
    if (counted)
        stats.bytes = kept.integer(1);
    Statement days = database.prepare(
        "SELECT day, due <= ?, "
        "(SELECT coalesce(sum(bytes), 0) FROM moments JOIN documents USING(number) "
        "WHERE framed AND moments.day = purges.day) FROM purges ORDER BY day");
    days.bind(secondsOf(m_clock()));
    PurgeProgress purge;
    std::int64_t remaining = 0;
    while (days.step()) {
        ++purge.daysRemaining;
        remaining += days.integer(2);
        if (days.boolean(1))
            purge.skipped.push_back(days.text(0));
    }
    if (counted)
        purge.bytesRemaining = remaining;
    if (purge.daysRemaining > 0)
        stats.purge = std::move(purge);
    return AnswerCase::FrameStats{std::move(stats)};
}

GatewayResponse KeepRoom::answer(const ReadCase::ReelStats& /*request*/) {
    Statement kept = m_documents.database().prepare(
        "SELECT count(*), coalesce(sum(reel_bytes), 0) FROM meetings WHERE reel_bytes > 0");
    kept.step();
    return AnswerCase::ReelStats{{.meetings = kept.integer(0), .bytes = kept.integer(1)}};
}

GatewayResponse KeepRoom::answer(const ReadCase::DiskUsed& /*request*/) {
    purgeWhatIsDue();
    DiskUsed used = diskUsed();
    if (!isCounted())
        used.frames.reset();
    return AnswerCase::DiskUsed{used};
}

DiskUsed KeepRoom::diskUsed() {
    const auto figure = [&](const std::string& sql) {
        Statement statement = m_documents.database().prepare(sql);
        statement.step();
        return statement.integer(0);
    };
    const std::int64_t file = figure("PRAGMA page_count") * figure("PRAGMA page_size");
    const std::int64_t transcripts =
        figure("SELECT coalesce(sum(length(CAST(text AS BLOB))), 0) FROM utterances");
    return {.text = std::max<std::int64_t>(file - transcripts, 0),
            .transcripts = transcripts,
            .reel = figure("SELECT coalesce(sum(reel_bytes), 0) FROM meetings"),
            .frames = figure(fmt::format("SELECT coalesce(sum(bytes), 0) {}", framed))};
}

GatewayResponse KeepRoom::answer(const ControlCase::SetFrameKeep& request) {
    Transaction transaction(m_documents.database());
    const bool before = m_settings.flag(frameKeep, true);
    m_settings.setFlag(frameKeep, request._0);
    if (request._0)
        m_documents.database().execute("DELETE FROM purges");
    else if (before)
        startPurge();
    transaction.commit();
    return AnswerCase::Ok{};
}

void KeepRoom::startPurge() {
    constexpr double usualPause = 0.5;
    constexpr double longest = 60;
    std::vector<std::string> days;
    Statement kept = m_documents.database().prepare(
        fmt::format("SELECT DISTINCT moments.day {} ORDER BY moments.day", framed));
    while (kept.step())
        days.push_back(kept.text(0));
    const double pause = std::min(usualPause, longest / static_cast<double>(days.size() + 1));
    double due = secondsOf(m_clock());
    m_countedAt = due + countingTakes;
    for (const std::string& day : days)
        m_documents.database().run("INSERT OR REPLACE INTO purges(day, due) VALUES(?, ?)", day,
                                   due += pause);
}

void KeepRoom::purgeWhatIsDue() {
    PracticeDatabase& database = m_documents.database();
    constexpr std::string_view dueDays =
        "SELECT day FROM purges WHERE due <= ? AND day NOT IN (SELECT day FROM locked_days)";
    const double now = secondsOf(m_clock());
    Statement due = database.prepare(dueDays);
    if (!due.bind(now).step())
        return;
    due.reset();
    Transaction transaction(database);
    database.run(fmt::format("UPDATE documents SET framed = 0 WHERE framed AND number IN "
                             "(SELECT number FROM moments WHERE day IN ({}))",
                             dueDays),
                 now);
    database.run(fmt::format("DELETE FROM purges WHERE day IN ({})", dueDays), now);
    transaction.commit();
}

GatewayResponse KeepRoom::answer(const ControlCase::SetReelKeep& request) {
    Transaction transaction(m_documents.database());
    m_settings.setFlag(reelKeep, request._0);
    if (!request._0)
        m_documents.database().execute("UPDATE meetings SET reel_bytes = 0");
    transaction.commit();
    return AnswerCase::Ok{};
}

GatewayResponse KeepRoom::answer(const ControlCase::Forget& request) {
    if (!m_documents.remove(request.thingID))
        return AnswerCase::Failure{
            fmt::format("nothing has the id “{}”; nothing was forgotten", request.thingID)};
    return AnswerCase::Ok{};
}

GatewayResponse KeepRoom::answer(const ControlCase::DeleteAll& /*request*/) {
    PracticeDatabase& database = m_documents.database();
    Transaction transaction(database);
    m_documents.clear();
    database.execute("DELETE FROM activities; DELETE FROM chapters; DELETE FROM purges;"
                     "DELETE FROM locked_days; DELETE FROM mod_runs; DELETE FROM mod_rejections;"
                     "DELETE FROM session_scopes");
    transaction.commit();
    // The file gives its room back, or the disk would seem as full as before.
    database.execute("VACUUM; PRAGMA wal_checkpoint(TRUNCATE)");
    return AnswerCase::Ok{};
}

void KeepRoom::lockDay(std::string_view day) {
    m_documents.database().run("INSERT OR IGNORE INTO locked_days VALUES(?)", day);
}

} // namespace wendlow
