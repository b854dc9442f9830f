#include "ActivityLedger.h"

#include "RawString.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS chapters(
    number INTEGER PRIMARY KEY, day TEXT NOT NULL, title TEXT NOT NULL, start REAL NOT NULL,
    end REAL NOT NULL);
CREATE INDEX IF NOT EXISTS chapters_by_day ON chapters(day);
CREATE TABLE IF NOT EXISTS activities(
    number INTEGER PRIMARY KEY, day TEXT NOT NULL, start REAL NOT NULL, end REAL NOT NULL,
    app TEXT NOT NULL, is_browser INTEGER NOT NULL, attended INTEGER NOT NULL,
    attention TEXT NOT NULL, site TEXT, chapter INTEGER NOT NULL);
CREATE INDEX IF NOT EXISTS activities_by_day ON activities(day, start);
)sql";

constexpr std::string_view lastNumber =
    "(SELECT number FROM activities WHERE day = (SELECT max(day) FROM activities) "
    "ORDER BY end DESC, number DESC LIMIT 1)";

Activity activityOf(const Statement& row) {
    return {.day = row.text(0),
            .start = row.real(1),
            .end = row.real(2),
            .app = row.text(3),
            .isBrowser = row.boolean(4),
            .attended = row.boolean(5),
            .attention = fromRawString<Attention>(row.view(6)).value_or(Attention::work),
            .site = row.textIfAny(7),
            .chapter = row.integer(8)};
}

Chapter chapterOf(const Statement& row) {
    return {.number = row.integer(0),
            .day = row.text(1),
            .title = row.text(2),
            .start = row.real(3),
            .end = row.real(4)};
}

} // namespace

std::string_view ActivityLedger::schema() {
    return tables;
}

ActivityLedger::ActivityLedger(PracticeDatabase& database)
    : m_database(database),
      m_put(database.prepare("INSERT INTO activities(day, start, end, app, is_browser, attended, "
                             "attention, site, chapter) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?)")) {}

std::vector<Activity> ActivityLedger::between(std::string_view firstDay, std::string_view lastDay) {
    std::vector<Activity> activities;
    Statement rows = m_database.prepare(
        "SELECT day, start, end, app, is_browser, attended, attention, site, chapter "
        "FROM activities WHERE day BETWEEN ? AND ? ORDER BY day, start, number");
    rows.bind(firstDay, lastDay);
    while (rows.step())
        activities.push_back(activityOf(rows));
    return activities;
}

std::optional<Activity> ActivityLedger::last() {
    Statement rows = m_database.prepare(
        "SELECT day, start, end, app, is_browser, attended, attention, site, chapter "
        "FROM activities WHERE number = " +
        std::string(lastNumber));
    return rows.step() ? std::optional(activityOf(rows)) : std::nullopt;
}

void ActivityLedger::extendLast(double end) {
    m_database.run("UPDATE chapters SET end = max(end, ?) WHERE number = (SELECT chapter FROM "
                   "activities WHERE number = " +
                       std::string(lastNumber) + ")",
                   end);
    m_database.run("UPDATE activities SET end = ? WHERE number = " + std::string(lastNumber), end);
}

std::vector<Chapter> ActivityLedger::chaptersOf(std::string_view day) {
    std::vector<Chapter> chapters;
    Statement rows = m_database.prepare("SELECT number, day, title, start, end FROM chapters "
                                        "WHERE day = ? ORDER BY start, number");
    rows.bind(day);
    while (rows.step())
        chapters.push_back(chapterOf(rows));
    return chapters;
}

std::optional<Chapter> ActivityLedger::chapter(std::int64_t number) {
    Statement rows =
        m_database.prepare("SELECT number, day, title, start, end FROM chapters WHERE number = ?");
    return rows.bind(number).step() ? std::optional(chapterOf(rows)) : std::nullopt;
}

std::int64_t ActivityLedger::lastChapter() {
    Statement highest = m_database.prepare("SELECT coalesce(max(number), 0) FROM chapters");
    highest.step();
    return highest.integer(0);
}

std::optional<std::pair<std::string, std::string>> ActivityLedger::days() {
    Statement bounds = m_database.prepare("SELECT min(day), max(day) FROM activities");
    if (!bounds.step() || bounds.isNull(0))
        return std::nullopt;
    return std::pair(bounds.text(0), bounds.text(1));
}

void ActivityLedger::put(const Activity& activity) {
    m_put
        .bind(activity.day, activity.start, activity.end, activity.app, activity.isBrowser,
              activity.attended, rawString(activity.attention), activity.site, activity.chapter)
        .run();
}

void ActivityLedger::put(const Chapter& chapter) {
    m_database.run("INSERT INTO chapters(number, day, title, start, end) VALUES(?, ?, ?, ?, ?)",
                   chapter.number, chapter.day, chapter.title, chapter.start, chapter.end);
}

} // namespace wendlow
