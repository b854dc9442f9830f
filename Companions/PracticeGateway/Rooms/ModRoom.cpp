#include "ModRoom.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "FilterText.h"
#include "ModShelf.h"
#include "WordList.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS mods(
    memory INTEGER PRIMARY KEY REFERENCES documents(number) ON DELETE CASCADE,
    slug TEXT NOT NULL, rev INTEGER NOT NULL, hint TEXT NOT NULL, files TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS mod_behaviors(
    memory INTEGER NOT NULL REFERENCES mods(memory) ON DELETE CASCADE, place INTEGER NOT NULL,
    name TEXT NOT NULL, wakes_on TEXT NOT NULL, wake INTEGER NOT NULL, tools TEXT,
    max_mutations INTEGER, lane_state TEXT, PRIMARY KEY(memory, place)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS mod_rejections(
    number INTEGER PRIMARY KEY, slug TEXT NOT NULL, scope TEXT NOT NULL, behavior TEXT,
    reason TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS mod_runs(
    number INTEGER PRIMARY KEY, mod TEXT NOT NULL, behavior TEXT NOT NULL, scope TEXT NOT NULL,
    wakes_on TEXT NOT NULL, started_at REAL NOT NULL, ended_at REAL NOT NULL, exit INTEGER,
    turns INTEGER, outcome TEXT NOT NULL, output_path TEXT, report TEXT, mutations INTEGER);
CREATE INDEX IF NOT EXISTS mod_runs_by_time ON mod_runs(started_at);
)sql";

/// A run of each outcome of a mod that is installed, a second apart, the newest first; the last in
/// the contract's words is one of a daemon to come.
std::vector<ModRunEntry> outcomes(const std::string& mod, double now) {
    constexpr std::string_view words[] = {"ok",
                                          "failed",
                                          "maxTurns",
                                          "circuitBroken",
                                          "timedOut",
                                          "binaryNotFound",
                                          "refusedNoBackup",
                                          "refusedTools",
                                          "authFailure",
                                          "skippedNoHarness",
                                          "skippedNoHarnessConsent",
                                          "waiting for the tide"};
    std::vector<ModRunEntry> runs;
    for (const std::string_view word : words) {
        now -= 1;
        runs.push_back({.mod = mod,
                        .behavior = "every-way",
                        .scope = "/",
                        .trigger = "every second",
                        .startedAt = now,
                        .endedAt = now + 1,
                        .outcome = std::string(word)});
    }
    runs.front().turns = 7;
    runs.front().mutations = 2;
    runs.front().report = "Swept the shelf.\n\n…[report truncated by Wendlow]";
    return runs;
}

} // namespace

std::expected<ModManner, std::string> ModManner::parse(std::string_view words) {
    static constexpr WordList::Known<bool ModManner::*> ways[] = {
        {"none", &ModManner::none}, {"every-outcome", &ModManner::everyOutcome}};
    return WordList::switches(words, ways);
}

std::string_view ModRoom::schema() {
    return tables;
}

ModRoom::ModRoom(DocumentStore& documents, Clock clock)
    : m_documents(documents), m_clock(std::move(clock)) {}

std::vector<ModBehaviorEntry> ModRoom::behaviors(std::int64_t memory) {
    std::vector<ModBehaviorEntry> behaviors;
    Statement rows = m_documents.database().prepare(
        "SELECT name, wakes_on, wake, tools, max_mutations, lane_state FROM mod_behaviors "
        "WHERE memory = ? ORDER BY place");
    rows.bind(memory);
    while (rows.step()) {
        ModBehaviorEntry& entry = behaviors.emplace_back(ModBehaviorEntry{
            .name = rows.text(0), .trigger = rows.text(1), .wake = rows.boolean(2)});
        if (!rows.isNull(3))
            entry.tools = FilterText::readList(rows.view(3));
        entry.maxMutations = rows.integerIfAny(4);
        entry.laneState = rows.textIfAny(5);
    }
    return behaviors;
}

std::vector<ModBoardEntry> ModRoom::mods() {
    std::vector<ModBoardEntry> mods;
    Statement rows = m_documents.database().prepare(
        "SELECT memory, slug, scope, rev, hint, mods.files FROM mods "
        "JOIN documents ON number = memory ORDER BY scope, slug");
    while (rows.step())
        mods.push_back({.slug = rows.text(1),
                        .scope = rows.text(2),
                        .rev = rows.integer(3),
                        .hint = rows.text(4),
                        .files = FilterText::readList(rows.view(5)),
                        .behaviors = behaviors(rows.integer(0))});
    return mods;
}

std::vector<ModRejectionEntry> ModRoom::rejections() {
    std::vector<ModRejectionEntry> rejections;
    Statement rows = m_documents.database().prepare(
        "SELECT slug, scope, behavior, reason FROM mod_rejections ORDER BY slug, number");
    while (rows.step())
        rejections.push_back({.slug = rows.text(0),
                              .scope = rows.text(1),
                              .behavior = rows.textIfAny(2),
                              .reason = rows.text(3)});
    return rejections;
}

std::vector<ModRunEntry> ModRoom::runs(std::int64_t limit) {
    std::vector<ModRunEntry> runs;
    Statement rows = m_documents.database().prepare(
        "SELECT mod, behavior, scope, wakes_on, started_at, ended_at, exit, turns, outcome, "
        "output_path, report, mutations FROM mod_runs ORDER BY started_at DESC, number DESC "
        "LIMIT ?");
    rows.bind(limit);
    while (rows.step())
        runs.push_back({.mod = rows.text(0),
                        .behavior = rows.text(1),
                        .scope = rows.text(2),
                        .trigger = rows.text(3),
                        .startedAt = rows.real(4),
                        .endedAt = rows.real(5),
                        .exit = rows.integerIfAny(6),
                        .turns = rows.integerIfAny(7),
                        .outcome = rows.text(8),
                        .outputPath = rows.textIfAny(9),
                        .report = rows.textIfAny(10),
                        .mutations = rows.integerIfAny(11)});
    return runs;
}

GatewayResponse ModRoom::answer(const ReadCase::ModBoard& request) {
    constexpr std::int64_t usualLimit = 200;
    ModBoardAnswer board;
    if (!m_manner.none)
        board = {.mods = mods(),
                 .rejected = rejections(),
                 .runs = runs(std::max<std::int64_t>(request.limit.value_or(usualLimit), 0))};
    if (m_manner.everyOutcome)
        std::ranges::move(outcomes(board.mods.empty() ? "gone-helper" : board.mods.front().slug,
                                   secondsOf(m_clock())),
                          std::inserter(board.runs, board.runs.begin()));
    return AnswerCase::ModBoard{std::move(board)};
}

GatewayResponse ModRoom::answer(const ReadCase::ModsList& /*request*/) {
    std::string list;
    for (const ModBoardEntry& mod : mods())
        list += fmt::format("- {} · {} · rev {} · {}\n", mod.slug, mod.scope, mod.rev, mod.hint);
    return AnswerCase::Text{list.empty() ? "No mods are installed." : std::move(list)};
}

GatewayResponse ModRoom::answer(const NotesCase::ModInstall& request) {
    const ModBoardEntry* const found = ModShelf::find(request.name);
    if (found == nullptr)
        return AnswerCase::Failure{fmt::format("no mod is named “{}”; those that can be installed "
                                               "are {}",
                                               request.name, fmt::join(ModShelf::names(), ", "))};
    ModBoardEntry mod = *found;
    for (const ModBoardEntry& installed : mods())
        if (installed.slug == mod.slug && installed.scope == mod.scope)
            mod.rev = installed.rev + 1;
    Transaction transaction(m_documents.database());
    put(mod, fmt::format("Installed by {}.", request.writer), request.writer);
    transaction.commit();
    return AnswerCase::Text{fmt::format("Installed {}, revision {}.", mod.slug, mod.rev)};
}

void ModRoom::put(const ModBoardEntry& mod, std::string_view why, std::string_view writer) {
    PracticeDatabase& database = m_documents.database();
    Statement standing = database.prepare("SELECT id FROM documents JOIN mods ON memory = number "
                                          "WHERE slug = ? AND scope = ?");
    const bool known = standing.bind(mod.slug, mod.scope).step();
    Document memory{.id = known ? standing.text(0) : m_documents.nextMemoryID(),
                    .type = "mod",
                    .scope = mod.scope,
                    .at = secondsOf(m_clock()),
                    .title = mod.slug,
                    .why = std::string(why),
                    .body = mod.hint,
                    .writer = std::string(writer)};
    standing.reset();
    const std::int64_t number = m_documents.put(memory);
    database.run("DELETE FROM mods WHERE memory = ?", number);
    database.run("INSERT INTO mods(memory, slug, rev, hint, files) VALUES(?, ?, ?, ?, ?)", number,
                 mod.slug, mod.rev, mod.hint, FilterText::writeList(mod.files));
    std::int64_t place = 0;
    for (const ModBehaviorEntry& behavior : mod.behaviors)
        database.run("INSERT INTO mod_behaviors VALUES(?, ?, ?, ?, ?, ?, ?, ?)", number, ++place,
                     behavior.name, behavior.trigger, behavior.wake,
                     behavior.tools ? std::optional(FilterText::writeList(*behavior.tools))
                                    : std::nullopt,
                     behavior.maxMutations, behavior.laneState);
}

void ModRoom::put(const ModRejectionEntry& rejection) {
    m_documents.database().run(
        "INSERT INTO mod_rejections(slug, scope, behavior, reason) VALUES(?, ?, ?, ?)",
        rejection.slug, rejection.scope, rejection.behavior, rejection.reason);
}

void ModRoom::put(const ModRunEntry& run) {
    m_documents.database().run(
        "INSERT INTO mod_runs(mod, behavior, scope, wakes_on, started_at, ended_at, exit, turns, "
        "outcome, output_path, report, mutations) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
        run.mod, run.behavior, run.scope, run.trigger, run.startedAt, run.endedAt, run.exit,
        run.turns, run.outcome, run.outputPath, run.report, run.mutations);
}

} // namespace wendlow
