#include "ConnectedAppsModel.h"
#include "Files.h"
#include "MockConnector.h"
#include "TemporaryHome.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <gmock/gmock.h>

#include <mutex>
#include <set>
#include <thread>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using State = ConnectorState;
using ::testing::ElementsAre;

constexpr const char* driftWords = "the Wendlow hook entry here — it runs another command";

/// Cursor, with a callback for its verbs and one for the end of its scans.
std::shared_ptr<MockConnector> hooked(std::function<void()> onVerb,
                                      std::function<void()> afterScan = {}) {
    return std::make_shared<MockConnector>(
        ConnectorIdentity{"cursor", "Cursor", "", ""},
        MockConnector::Script{.onVerb = std::move(onVerb), .afterScan = std::move(afterScan)});
}

bool settled(const ConnectedAppsModel& model) {
    return QTest::qWaitFor([&model] { return model.idle(); }, 5000);
}

/// A model over two scripted tools, with everything that a person could see of it recorded.
struct Pane {
    std::shared_ptr<MockConnector> code = mock("claude-code", "Claude Code");
    std::shared_ptr<MockConnector> codex = mock("codex", "Codex");
    QStringList copied;
    ConnectedAppsModel::Surroundings around{
        .copy = [this](const QString& text) { copied.append(text); },
        .imageLoads = [](const std::string& name) { return name == "tool-codex"; },
        .home = "/home/ada"};
    std::unique_ptr<ConnectedAppsModel> model = std::make_unique<ConnectedAppsModel>(
        Connectors::List{code, codex}, "/opt/Wendlow.app/Contents/MacOS/wendlow-mcp", around);
    QAbstractItemModelTester tester{model->appsList(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy resets{model->appsList(), &QAbstractItemModel::modelReset};
    QSignalSpy inserts{model->appsList(), &QAbstractItemModel::rowsInserted};
    QSignalSpy removals{model->appsList(), &QAbstractItemModel::rowsRemoved};
    QSignalSpy changes{model->appsList(), &QAbstractItemModel::dataChanged};

    ~Pane() { EXPECT_EQ(resets.count(), 0) << "a reset makes rows jump"; }

    static std::shared_ptr<MockConnector> mock(const char* id, const char* name) {
        return std::make_shared<MockConnector>(
            ConnectorIdentity{id, name, std::string(name) + " here.", "terminal"});
    }
    void scan() const {
        model->scan();
        EXPECT_TRUE(settled(*model));
    }
    void connect(const char* id) const {
        model->connect(QString::fromLatin1(id));
        EXPECT_TRUE(settled(*model));
    }
    const ConnectedAppRow& row(std::size_t index) const { return model->apps().at(index); }
    /// A member of a row's first note.
    QVariant firstNote(int row, const QString& member) const {
        const auto* const list = model->appsList();
        return list->index(row).data(ConnectedAppsList::NotesRole).toList().at(0).toMap()[member];
    }
    std::vector<std::string> words(const std::string& id) const {
        std::vector<std::string> texts;
        for (const ConnectableAppNote& note : model->notes(id)) {
            EXPECT_EQ(note.id, static_cast<int>(texts.size()));
            texts.push_back(note.text);
        }
        return texts;
    }
    /// What the first strip of the first row says; empty: it has none.
    std::string headline() const {
        return row(0).strips.empty() ? "" : row(0).strips.front().headline;
    }
    void act(RowAction action) const {
        model->act(u"claude-code"_s, static_cast<int>(action), {});
        EXPECT_TRUE(settled(*model));
    }
};

TEST(ConnectedAppsModel, ShowsOneRowForEachToolThatIsHere) {
    Pane pane;
    pane.code->becomes(State::connected, Observations{{"/home/ada/.claude.json", "it runs"}});
    EXPECT_FALSE(pane.model->scanned());
    pane.scan();
    EXPECT_TRUE(pane.model->scanned());
    ASSERT_EQ(pane.model->apps().size(), 2U);
    EXPECT_EQ(pane.row(0).app, (ConnectableApp{"claude-code",
                                               "Claude Code",
                                               "Claude Code here.",
                                               {ConnectableAppIcon::Glyph{"terminal"}},
                                               true,
                                               false}))
        << "an image that does not load leaves the symbol";
    EXPECT_EQ(pane.row(1).app.icon.kind,
              decltype(ConnectableAppIcon::kind)(ConnectableAppIcon::Asset{"tool-codex"}));
    EXPECT_EQ(pane.firstNote(0, u"subject"_s), u"/home/ada/.claude.json"_s);
    EXPECT_EQ(pane.firstNote(0, u"shownSubject"_s), u"~/.claude.json"_s);
    pane.codex->becomes(State::found, Observations{{"/home/adam/x", "it is another's"}});
    pane.scan();
    EXPECT_EQ(pane.firstNote(1, u"shownSubject"_s), u"/home/adam/x"_s);
}

TEST(ConnectedAppsModel, OfTwoQuickScansOnlyTheLaterLands) {
    QSemaphore begun;
    QSemaphore go;
    const auto held = hooked({}, [&] {
        begun.release();
        go.acquire();
    });
    ConnectedAppsModel model({held}, std::nullopt, {});
    const QSignalSpy landed(&model, &ConnectedAppsModel::landed);
    model.scan();
    begun.acquire(); // the first has read what it read
    held->becomes(State::connected);
    model.scan();
    go.release(2);
    ASSERT_TRUE(settled(model));
    EXPECT_EQ(landed.count(), 1);
    EXPECT_TRUE(model.apps().at(0).app.connected);
}

TEST(ConnectedAppsModel, AVerbsNoteStaysUntilTheStateMovesOn) {
    Pane pane;
    pane.scan();
    pane.code->becomes(State::drifted, Observations{{"f", driftWords}},
                       {.verbObservations = Observations{{"f", "one block was written"},
                                                         {"/b/1", "a copy was made here"}},
                        .backups = std::vector<std::filesystem::path>{"/b/1", "/b/2"}});
    // Its own scan is overtaken by the next one.
    pane.model->connect(u"claude-code"_s);
    pane.connect("claude-code");
    for (int scans = 0; scans < 2; ++scans, pane.scan()) {
        EXPECT_THAT(pane.words("claude-code"),
                    ElementsAre("one block was written", "a copy was made here",
                                "a backup was written here before this change", driftWords));
        EXPECT_EQ(pane.model->notes("claude-code").at(2).subject, "/b/2") << "each told once";
        EXPECT_EQ(pane.row(0).changes.size(), 3U);
        EXPECT_FALSE(pane.row(0).app.connected) << "a drifted app's switch is off";
        EXPECT_FALSE(pane.row(0).app.busy);
    }
    pane.code->becomes(State::notFound);
    pane.scan();
    EXPECT_EQ(pane.removals.count(), 1);
    EXPECT_EQ(pane.row(0).app.id, "codex");
    pane.code->becomes(State::connected, Observations{});
    pane.scan();
    EXPECT_EQ(pane.row(0).app.id, "claude-code") << "it comes back in its old place";
    EXPECT_THAT(pane.words("claude-code"), ElementsAre()) << "its note does not";
    EXPECT_THAT(pane.words("nobody"), ElementsAre());
}

TEST(ConnectedAppsModel, TheLastVerbCanBeUndoneUntilSomebodyElseHasWritten) {
    const testing::TemporaryHome home;
    const auto file = testing::put(home / "settings.json", "{}");
    const auto undoable = [](const Pane& pane) {
        return pane.row(0).strips.at(0).actions == std::vector{RowAction::undo};
    };
    Pane pane;
    QStringList said;
    QObject::connect(pane.model.get(), &PaneModel::said,
                     [&said](const QString& words) { said.append(words); });
    pane.code->becomes(State::connected, {},
                       {.verbObservations = Observations{{file.string(), "it was written"}}});
    pane.scan();
    pane.act(RowAction::undo);
    EXPECT_THAT(pane.code->log(), ElementsAre("scan")) << "there is nothing to undo";
    pane.connect("claude-code");
    EXPECT_EQ(pane.headline(), "Connected. Restart Claude Code to use it.");
    EXPECT_EQ(said.join(u'|'), u"Connected. Restart Claude Code to use it."_s);
    pane.scan();
    ASSERT_TRUE(undoable(pane));
    pane.code->becomes(State::found);
    pane.act(RowAction::undo);
    EXPECT_EQ(pane.headline(), "Disconnected. Restart Claude Code to finish.");
    EXPECT_EQ(std::ranges::count(pane.code->log(), "remove"), 1);
    ASSERT_TRUE(undoable(pane)) << "what was undone can be done again";
    testing::put(file, "{\"theirs\": 1}");
    pane.scan();
    EXPECT_FALSE(undoable(pane));
    pane.act(RowAction::undo);
    EXPECT_EQ(std::ranges::count(pane.code->log(), "install"), 1);
}

TEST(ConnectedAppsModel, ARefusalIsToldUntilItsFileIsMended) {
    const testing::TemporaryHome home;
    const auto file = testing::put(home / "settings.json", "{");
    Pane pane;
    pane.code->becomes(
        State::found, {},
        {.refuses = true,
         .verbObservations = Observations{{file.string(), "a value was expected (at byte 1)"}}});
    pane.scan();
    pane.connect("claude-code");
    pane.act(RowAction::lookAgain);
    EXPECT_EQ(pane.headline(), "Claude Code was not connected.");
    testing::put(file, "{}");
    pane.act(RowAction::lookAgain);
    EXPECT_EQ(pane.headline(), "");
}

TEST(ConnectedAppsModel, ASlowToolHoldsBackNoOtherAndNotTheEnd) {
    QSemaphore go;
    const auto slow = hooked({}, [&go] { go.acquire(); });
    const auto quick = Pane::mock("codex", "Codex");
    auto model = std::make_unique<ConnectedAppsModel>(Connectors::List{slow, quick}, std::nullopt,
                                                      ConnectedAppsModel::Surroundings{});
    model->scan();
    ASSERT_TRUE(QTest::qWaitFor([&] { return model->apps().size() == 1; }, 5000));
    EXPECT_FALSE(model->scanned()) << "one of them is still to be looked at";
    quick->becomes(State::connected);
    model->connect(u"codex"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return model->apps().at(0).app.connected; }, 5000));
    QElapsedTimer clock;
    clock.start();
    model.reset();
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_GE(clock.elapsed(), 900) << "what it does may be a change to a file";
    go.release(9); // it is let go with nobody there
    QTest::qWait(20);
}

TEST(ConnectedAppsModel, RepairsAtTheStartWhatIsStaleAndNothingElse) {
    const auto stale = std::make_shared<MockConnector>(
        ConnectorIdentity{"cursor", "Cursor", "", ""},
        MockConnector::Script{.observations = {{"/f", "it was written"}}, .staleOwnWiring = true});
    const auto current = Pane::mock("codex", "Codex");
    ConnectedAppsModel::Surroundings around;
    around.retire = [] { return std::vector<Converge::Repair>{{"Claude Chat retirement", {}}}; };
    ConnectedAppsModel model({stale, current}, std::nullopt, around);
    std::mutex lock;
    std::multiset<std::string> lines;
    model.disconnect(u"cursor"_s); // is done before, and what it left is what is looked at
    model.started([&](const std::string& line) {
        const std::lock_guard guard(lock);
        lines.insert(line);
    });
    ASSERT_TRUE(settled(model));
    EXPECT_THAT(current->log(), ElementsAre());
    auto calls = stale->log();
    std::erase_if(calls, [](const std::string& call) { return call.ends_with("s"); });
    EXPECT_EQ(calls.front() + ' ' + calls.back(), "remove scan") << "the row shows what changed";
    EXPECT_EQ(std::ranges::count(calls, "install"), 1);
    EXPECT_THAT(lines, ElementsAre("repair: /f: it was written",
                                   "repair: Claude Chat retirement: unchanged",
                                   "repair: Cursor: changed"));
}

TEST(ConnectedAppsModel, ASecondVerbQueuesAndTheRowStaysBusyUntilBothAreDone) {
    QSemaphore verbs;
    QSemaphore scans(1);
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    const auto slow = hooked(
        [&] {
            most = std::max(most.load(), ++inside);
            verbs.acquire();
            --inside;
        },
        [&] { scans.acquire(); });
    ConnectedAppsModel model({slow}, std::nullopt, {});
    model.scan();
    ASSERT_TRUE(settled(model));
    const auto busy = [&model] { return model.apps().at(0).app.busy; };
    const auto calls = [&slow](std::size_t count) {
        return QTest::qWaitFor([&] { return slow->log().size() == count; }, 5000);
    };
    QSignalSpy landed(&model, &ConnectedAppsModel::landed);
    model.connect(u"nobody"_s);
    model.connect(u"cursor"_s);
    EXPECT_TRUE(busy());
    verbs.release();
    ASSERT_TRUE(calls(3)); // the first verb's scan has looked and has not landed
    model.disconnect(u"cursor"_s);
    scans.release();
    ASSERT_TRUE(landed.wait(5000));
    EXPECT_TRUE(busy()) << "the second verb is in flight";
    verbs.release();
    scans.release();
    ASSERT_TRUE(settled(model));
    EXPECT_FALSE(busy());
    EXPECT_EQ(most, 1) << "two verbs ran at once";
    EXPECT_THAT(slow->log(),
                ElementsAre("scan", "install", "scan", "remove", "scan", "projects", "memoryFiles"))
        << "the row has opened by itself, and is read when nothing else waits";
}

TEST(ConnectedAppsModel, WhileAVerbRunsItsOldNoteIsGoneAndItsRowStaysAsItIs) {
    QSemaphore begun;
    QSemaphore go(1);
    const auto slow = hooked([&] {
        begun.release();
        go.acquire();
    });
    slow->becomes(State::found, Observations{},
                  {.verbObservations = Observations{{"f", "written"}}});
    ConnectedAppsModel model({slow}, std::nullopt, {});
    model.scan();
    ASSERT_TRUE(settled(model));
    const auto row = [&model] { return model.apps().at(0); };
    for (const bool open : {true, false}) {
        model.connect(u"cursor"_s);
        ASSERT_TRUE(settled(model));
        begun.acquire();
        EXPECT_TRUE(row().open);
        EXPECT_EQ(row().changes.size(), 1U);
        model.setOpen(u"cursor"_s, open);
        model.disconnect(u"cursor"_s);
        begun.acquire();
        EXPECT_TRUE(row().app.busy);
        EXPECT_EQ(row().changes.size(), 0U) << "it told of another verb";
        EXPECT_EQ(row().open, open) << "it jumped";
        go.release(2);
        ASSERT_TRUE(settled(model));
        EXPECT_FALSE(row().app.busy);
    }
}

TEST(ConnectedAppsModel, DestroyedWithVerbsOnTheLaneFinishesThemAndTouchesNothing) {
    QSemaphore begun;
    QSemaphore held;
    std::atomic<int> finished = 0;
    const auto slow = hooked([&] {
        begun.release();
        held.acquire();
        ++finished;
    });
    auto model = std::make_unique<ConnectedAppsModel>(Connectors::List{slow}, std::nullopt,
                                                      ConnectedAppsModel::Surroundings{});
    model->connect(u"cursor"_s);
    model->disconnect(u"cursor"_s);
    model->scan();
    begun.acquire();
    // Until the model waits for them, or what is behind them may begin.
    const std::jthread later([&held] {
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        held.release(2);
    });
    model.reset();
    EXPECT_EQ(finished, 2);
    EXPECT_THAT(slow->log(), ElementsAre("install", "remove"));
    QTest::qWait(20); // the answers arrive with nobody there
}

TEST(ConnectedAppsModel, ARowOpensByItselfWhereThereIsSomethingToTell) {
    const std::tuple<State, const char*, ScanFacts, bool> rows[] = {
        {State::found, "there is no file here", {}, false},
        {State::found, "this file did not read as JSON — is what a person wrote", {}, false},
        {State::connected, "it runs", {}, false},
        {State::drifted, driftWords, {}, true},
        {State::found, "somebody else's", {.foreign = true}, false},
        {State::found, "whatever it says", {.unreadable = true}, true}};
    for (const auto& [state, words, facts, open] : rows) {
        SCOPED_TRACE(words);
        Pane pane;
        pane.code->becomes(state, Observations{{"f", words}}, {.facts = facts});
        pane.scan();
        EXPECT_EQ(pane.row(0).open, open);
        pane.model->setOpen(u"claude-code"_s, !open);
        pane.scan();
        EXPECT_EQ(pane.row(0).open, !open) << "the person's choice holds";
        pane.connect("claude-code");
        EXPECT_TRUE(pane.row(0).open) << "a verb has ended";
        pane.model->setOpen(u"claude-code"_s, false);
        pane.code->becomes(state == State::drifted ? State::found : State::drifted);
        pane.scan();
        EXPECT_EQ(pane.row(0).open, state != State::drifted) << "moved on";
    }
}

TEST(ConnectedAppsModel, ChangesOnlyWhatChangedAndOnlyWhenSomethingDid) {
    Pane pane;
    pane.scan();
    EXPECT_EQ(pane.inserts.count(), 2);
    pane.scan();
    pane.model->setOpen(u"codex"_s, false);
    EXPECT_EQ(pane.changes.count(), 0);
    pane.codex->becomes(State::connected);
    pane.scan();
    ASSERT_EQ(pane.changes.count(), 1);
    const auto change = pane.changes.takeFirst();
    EXPECT_EQ(change.at(0).toModelIndex().row(), 1);
    EXPECT_EQ(change.at(2).value<QList<int>>(), QList<int>{ConnectedAppsList::ConnectedRole});
}

TEST(ConnectedAppsModel, CopiesTheEndpointOnlyWhereThereIsOne) {
    Pane pane;
    pane.model->copyEndpoint();
    pane.model->copySubject(u"/b/1"_s);
    EXPECT_EQ(pane.copied.join(u' '), u"/opt/Wendlow.app/Contents/MacOS/wendlow-mcp /b/1"_s);

    const auto bare =
        ConnectedAppsModel::forThisMac("/nowhere", std::nullopt, "/Applications", pane.around);
    bare->copyEndpoint();
    bare->scan();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bare->scanned(); }, 5000));
    EXPECT_EQ(pane.copied.size(), 2);
    EXPECT_EQ(pane.model->emptyAdvice(), QString()) << "nobody has looked yet";
    pane.scan();
    EXPECT_EQ(pane.model->emptyAdvice(), u"Install Claude Code or Codex, start it once and come "
                                         "back: Wendlow looks again by itself."_s);
    EXPECT_TRUE(bare->apps().empty());
    EXPECT_EQ(bare->error(), u"Wendlow is not running from an installed app bundle, "
                             "so there is no binary here to point an app at."_s);
}

} // namespace
} // namespace wendlow
