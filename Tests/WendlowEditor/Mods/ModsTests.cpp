#include "Mods/EditorModsFormat.h"
#include "Mods/ModsFaceModel.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>
#include <QDateTime>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Tone = EditorRunOutcome::Tone;

EditorModRun run(const char* mod, const char* outcome, std::optional<std::string> report = {}) {
    EditorModRun made{.mod = mod, .behavior = "sweep", .outcome = EditorRunOutcome::of(outcome)};
    made.startedAt = EditorDate(std::chrono::hours(24 * 20000));
    made.endedAt = made.startedAt + 61s;
    made.report = std::move(report);
    return made;
}

/// A mod with a run of each kind, a refused one, and a run of one that is gone.
EditorModsBoard board() {
    EditorModsBoard made;
    made.mods = {
        {.slug = "sweeper", .scope = "/work", .rev = 3, .hint = "sweeps", .files = {"mod.md"}},
        {.slug = "quiet", .scope = "/"}};
    made.mods[0].behaviors = {{.name = "sweep",
                               .trigger = "at night",
                               .wake = true,
                               .tools = {{"a", "b"}},
                               .maxMutations = 40,
                               .laneState = "running"}};
    made.rejected = {{.slug = "nosy", .scope = "/", .behavior = "fetch", .reason = "not granted"}};
    made.runs = {run("sweeper", "ok", "Swept.\n\n…[report truncated by Wendlow]"),
                 run("gone", "warped"), run("sweeper", "authFailure", " \n ")};
    made.runs[0].turns = 7;
    made.runs[0].mutations = 2;
    return made;
}

struct Face {
    ScriptedMods mods;
    EditorAnswer answer;
    MemoryDetails details;
    EditorAsk ask{.term = {}};
    ModsFaceModel model{mods};
    QAbstractItemModelTester tester{model.rows()};

    Face() { model.setOpen(true); }
    void show(std::int64_t generation = 0) {
        model.show({.ask = ask,
                    .answer = std::make_shared<const EditorAnswer>(answer),
                    .counted = false,
                    .generation = generation,
                    .details = details});
    }
    void hold(EditorModsBoard of) {
        mods.board = std::move(of);
        Q_EMIT mods.changed();
    }
    /// Each row in a line: its kind, its text, what else it tells, and what it leads to.
    std::vector<std::string> lines() {
        std::vector<std::string> all;
        for (int row = 0; row < model.rows()->rowCount(); ++row) {
            const auto told = [&](int role) {
                return model.rows()->index(row).data(role).toString();
            };
            const QString help = told(ModsRows::HelpRole);
            all.push_back(
                u"%1 %2 [%3]%4"_s.arg("@f>r#-!"[told(ModsRows::KindRole).toInt()])
                    .arg(told(ModsRows::KindRole) == u"3" ? u""_s : told(ModsRows::TextRole),
                         told(ModsRows::DescriptionRole), help.isEmpty() ? help : u' ' + help)
                    .toStdString());
        }
        return all;
    }
};
struct ModsFace : ::testing::Test, Face {};

TEST(EditorRunOutcome, tellsARefusalFromAFaultAndKeepsWhatItDoesNotKnow) {
    const std::tuple<const char*, const char*, Tone> outcomes[] = {
        {"ok", "ok", Tone::good},
        {"failed", "failed", Tone::fault},
        {"maxTurns", "hit the turn cap", Tone::fault},
        {"circuitBroken", "stopped — too many changes", Tone::fault},
        {"timedOut", "timed out", Tone::fault},
        {"binaryNotFound", "no runner binary", Tone::fault},
        {"refusedNoBackup", "refused — no verified backup", Tone::needsYou},
        {"refusedTools", "refused — tool not granted", Tone::fault},
        {"authFailure", "sign-in needed", Tone::needsYou},
        {"skippedNoHarness", "skipped — no runner", Tone::neutral},
        {"skippedNoHarnessConsent", "skipped — runner not consented", Tone::neutral},
        {"OK", "OK", Tone::fault},
        {"other", "other", Tone::fault},
        {"", "", Tone::fault},
    };
    for (const auto& [raw, words, tone] : outcomes) {
        const auto outcome = EditorRunOutcome::of(raw);
        EXPECT_EQ(outcome.words(), words) << raw;
        EXPECT_EQ(outcome.tone(), tone) << raw;
        EXPECT_EQ(outcome.wentWell(), outcome.tone() == Tone::good) << raw;
    }
}

TEST(EditorMods, areToldInTheirWords) {
    using Tools = std::optional<std::vector<std::string>>;
    const std::tuple<bool, Tools, std::optional<std::int64_t>, const char*> powers[] = {
        {false, Tools({"a"}), 3, "runs in your session — your tools, no ceiling"},
        {true, Tools({"a", "b"}), 3, "a, b · up to 3 store changes"},
        {true, std::nullopt, 0, "no tools granted · up to 0 store changes"},
        {true, Tools(std::in_place), std::nullopt, "no tools granted · no ceiling declared"},
    };
    for (const auto& [wake, tools, most, words] : powers) {
        EditorModBehavior behavior{.name = "b", .wake = wake};
        behavior.tools = tools;
        behavior.maxMutations = most;
        EXPECT_EQ(behavior.powers(), words);
    }
    const std::pair<std::chrono::milliseconds, std::int64_t> lengths[] = {
        {1499ms, 1}, {1500ms, 2}, {-5s, 0}, {-400ms, 0}, {3600s, 3600}};
    for (const auto& [took, seconds] : lengths) {
        EditorModRun timed = run("m", "ok");
        timed.endedAt = timed.startedAt + took;
        EXPECT_EQ(timed.seconds(), seconds);
    }
    const std::tuple<std::optional<std::string>, bool, bool> reports[] = {
        {std::nullopt, false, false},
        {" \t\n ", false, false},
        {"done", true, false},
        {"a…[report truncated by Wendlow]", true, false},
        {"a\n\n…[report truncated by Wendlow]", true, true},
        {"a\n\n…[report truncated by Wendlow]\n", true, false}};
    for (const auto& [report, has, cut] : reports) {
        EXPECT_EQ(run("m", "ok", report).hasReport(), has);
        EXPECT_EQ(run("m", "ok", report).isReportTruncated(), cut);
    }
    EXPECT_EQ((EditorModRun{.mod = "m"}).lane(), "m");
    EXPECT_EQ((EditorModRejection{.slug = "m", .scope = "/"}).id(), "m|/");
    const std::pair<std::int64_t, const char*> durations[] = {
        {0, "0s"}, {59, "59s"}, {60, "1m 0s"}, {3599, "59m 59s"}, {3600, "1h 0m"}, {7379, "2h 2m"}};
    for (const auto& [seconds, words] : durations)
        EXPECT_EQ(EditorModsFormat::duration(seconds), words);
    EXPECT_EQ(EditorModsFormat::turns({}), "— turns");
    EXPECT_EQ(EditorModsFormat::when(EditorDate(std::chrono::hours(24 * 20000) + 14h + 2min),
                                     QLocale(QLocale::English, QLocale::UnitedStates)),
              QDateTime::fromMSecsSinceEpoch((24LL * 20000 * 3600 + 14 * 3600 + 120) * 1000)
                  .toString(u"MMM d, h:mm AP"_s)
                  .toStdString());
}

TEST(ModsPage, saysWhatStandsInPlaceOfABoard) {
    const EditorModsBoard orphan{.runs = {run("gone", "ok")}};
    EXPECT_EQ(ModsPage::emptyLine(board(), true, "late"), "late");
    EXPECT_EQ(ModsPage::emptyLine(orphan, true, {}), std::nullopt);
    EXPECT_THAT(
        ModsPage::emptyLine(EditorModsBoard(), true, {}).value(),
        HasSubstr("No mods installed. A mod is a memory of type mod — a data spine plus named "
                  "behaviors — filed at the scope it works in."));
    EXPECT_THAT(ModsPage::emptyLine({}, true, {}).value(),
                HasSubstr("This world models no mods. "));
    EXPECT_EQ(ModsPage::emptyLine({}, false, {}), "Reading your mods…");
}

TEST_F(ModsFace, showsCardsRefusalsAndOrphans) {
    hold(board());
    const char* const open = "Open this run's report";
    const char* const none = "no report — this run never got as far as a final message";
    EXPECT_THAT(
        lines(),
        ElementsAre("@ sweeper [/work, sweeps, rev 3]", "f mod.md [rev 3]",
                    "> sweep [at night, a, b · up to 40 store changes, running]",
                    std::string("r  [ok, 7 turns] ") + open,
                    std::string("r  [sign-in needed, — turns] ") + none, "@ quiet [/, rev 0]",
                    "- No runs banked yet — nothing has fired on this Mac. []", "# Refused []",
                    "! nosy/fetch [/, not granted]",
                    "# Runs of mods no longer installed [A receipt outlives the mod that earned "
                    "it — these ran, and the ledger keeps them.]",
                    std::string("r  [gone/sweep, warped, — turns] ") + none));
    EXPECT_EQ(model.railCount(), 2);
    const ModsRows& rows = *model.rows();
    EXPECT_EQ(rows.stop(-1, 1), 0);
    EXPECT_EQ(rows.stop(5, 1), 8) << "past words that are only read";
    EXPECT_EQ(rows.stop(rows.rowCount(), -1), 10);
    EXPECT_EQ(rows.stop(10, 1), 10);
    // A board that is read again keeps its rows.
    std::vector<int> moved;
    QObject::connect(model.rows(), &QAbstractItemModel::rowsRemoved,
                     [&](const QModelIndex&, int first, int) { moved.push_back(first); });
    auto next = board();
    next.runs.erase(next.runs.begin() + 2);
    hold(next);
    EXPECT_THAT(moved, ElementsAre(4));
}

TEST_F(ModsFace, opensTheReportOfARunThatHasOne) {
    hold(board());
    std::vector<bool> modal;
    QObject::connect(&model, &FaceModel::modalChanged, [&] { modal.push_back(model.isModal()); });
    for (const int row : {0, 1, 4, 6, 8, 99})
        model.activate(row);
    EXPECT_THAT(modal, IsEmpty());
    model.activate(3);
    EXPECT_EQ(model.reportTitle(), model.rows()->index(3).data().toString());
    EXPECT_EQ(model.reportOutcome(), u"ok");
    EXPECT_EQ(model.reportTone(), ModsRows::Good);
    EXPECT_EQ(model.reportFacts(), u"1m 1s · 7 turns · 2 store changes in its window");
    EXPECT_TRUE(model.isReportCut());
    EXPECT_EQ(model.report(), u"Swept.\n\n…[report truncated by Wendlow]");
    // The run may go from the board while its report is read.
    hold({});
    EXPECT_EQ(model.reportOutcome(), u"ok");
    EXPECT_TRUE(model.back());
    EXPECT_FALSE(model.back());
    EXPECT_THAT(modal, ElementsAre(true, false));
    auto bare = board();
    bare.runs[0].turns.reset();
    bare.runs[0].mutations.reset();
    hold(bare);
    model.activate(3);
    EXPECT_EQ(model.reportFacts(), u"1m 1s");
    model.leave(ask);
    EXPECT_FALSE(model.isModal());
}

TEST_F(ModsFace, readsItsBoardAndSaysWhyItIsNotThere) {
    mods.loaded = false;
    Q_EMIT mods.changed();
    EXPECT_EQ(model.emptyWords(), u"Reading your mods…");
    EXPECT_FALSE(model.isFilled());
    EXPECT_EQ(model.railCount(), std::nullopt);
    model.appear(ask);
    show(0);
    show(1);
    show(1);
    EXPECT_EQ(mods.loads, 2) << "once for coming, once for the new generation";
    model.setOpen(false);
    show(2);
    EXPECT_EQ(mods.loads, 2);
    answer.state = EditorAnswerStateCase::Failed{"asleep"};
    show(2);
    EXPECT_EQ(model.trouble(), u"asleep");
    mods.error = "an older daemon";
    Q_EMIT mods.changed();
    EXPECT_EQ(model.trouble(), u"an older daemon");
    EXPECT_EQ(model.emptyWords(), u"");
    mods.error.reset();
    std::vector<int> revealed;
    QObject::connect(&model, &ModsFaceModel::revealed, [&](int row) { revealed.push_back(row); });
    FoundHit found;
    found.hit.destination = SearchDestination::Mod{"/", "quiet"};
    model.reveal(found, ask);
    hold(board());
    hold(board());
    EXPECT_THAT(revealed, ElementsAre(5));
    EXPECT_EQ(model.trouble() + model.emptyWords(), u"");
}

} // namespace
} // namespace wendlow::testing
