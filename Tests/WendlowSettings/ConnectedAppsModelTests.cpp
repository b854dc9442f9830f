#include "ConnectedAppsModel.h"
#include "MockConnector.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <gmock/gmock.h>

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

TEST(ConnectedAppsModel, AnAppThatIsGoneTakesItsRowAndItsNoteAlong) {
    Pane pane;
    pane.scan();
    pane.code->becomes(State::connected, {}, {.verbObservations = Observations{{"f", "written"}}});
    pane.connect("claude-code");
    EXPECT_THAT(pane.words("claude-code"), ElementsAre("written"));
    pane.code->becomes(State::notFound);
    pane.scan();
    EXPECT_EQ(pane.removals.count(), 1);
    ASSERT_EQ(pane.model->apps().size(), 1U);
    pane.code->becomes(State::connected);
    pane.scan();
    EXPECT_EQ(pane.row(0).app.id, "claude-code") << "it comes back in its old place";
    EXPECT_THAT(pane.words("claude-code"), ElementsAre()) << "its note does not";
}

TEST(ConnectedAppsModel, AVerbsNoteStaysUntilTheStateMovesOn) {
    Pane pane;
    pane.scan();
    pane.code->becomes(State::drifted, Observations{{"f", driftWords}},
                       {.verbObservations = Observations{{"f", "one block was written"}},
                        .backups = std::vector<std::filesystem::path>{"/b/1"}});
    pane.connect("claude-code");
    EXPECT_THAT(pane.words("claude-code"),
                ElementsAre("one block was written", "a backup was written here before this change",
                            driftWords));
    EXPECT_EQ(pane.model->notes("claude-code").at(1).subject, "/b/1");
    EXPECT_FALSE(pane.row(0).app.connected) << "a drifted app's switch is off";
    EXPECT_TRUE(pane.row(0).drifted);
    EXPECT_FALSE(pane.row(0).app.busy);
    pane.scan();
    EXPECT_EQ(pane.words("claude-code").size(), 3U) << "nothing has changed since the verb";
    pane.code->becomes(State::connected, Observations{});
    pane.scan();
    EXPECT_THAT(pane.words("claude-code"), ElementsAre());
    EXPECT_THAT(pane.words("nobody"), ElementsAre());
}

TEST(ConnectedAppsModel, ANoteWhoseScanWasOvertakenIsStampedByTheScanThatLands) {
    Pane pane;
    pane.scan();
    // Code's own scan is overtaken by the one after Codex's verb, queued behind it.
    pane.code->becomes(State::connected, {}, {.verbObservations = Observations{{"f", "written"}}});
    pane.model->connect(u"claude-code"_s);
    pane.connect("codex");
    pane.scan();
    EXPECT_THAT(pane.words("claude-code"), ElementsAre("written"));
    EXPECT_FALSE(pane.row(0).app.busy);
    EXPECT_FALSE(pane.row(1).app.busy);
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
    int ticks = 0;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&ticks] { ++ticks; });
    tick.start(1);

    model.connect(u"nobody"_s);
    model.connect(u"cursor"_s);
    EXPECT_TRUE(busy());
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 5; }, 5000)) << "the event loop stands still";
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
        EXPECT_EQ(row().notes.size(), 1U);
        model.setOpen(u"cursor"_s, open);
        model.disconnect(u"cursor"_s);
        begun.acquire();
        EXPECT_TRUE(row().app.busy);
        EXPECT_EQ(row().notes.size(), 0U) << "it told of another verb";
        EXPECT_EQ(row().open, open) << "it jumped";
        go.release(2);
        ASSERT_TRUE(settled(model));
        EXPECT_FALSE(row().app.busy);
    }
}

TEST(ConnectedAppsModel, DestroyedWithVerbsOnTheLaneFinishesThemAndTouchesNothing) {
    QSemaphore begun;
    std::atomic<int> finished = 0;
    const auto slow = hooked([&] {
        begun.release();
        QThread::msleep(30);
        ++finished;
    });
    auto model = std::make_unique<ConnectedAppsModel>(Connectors::List{slow}, std::nullopt,
                                                      ConnectedAppsModel::Surroundings{});
    model->connect(u"cursor"_s);
    model->disconnect(u"cursor"_s);
    model->scan();
    begun.acquire();
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

    ConnectedAppsModel::Surroundings around;
    around.copy = [&pane](const QString& text) { pane.copied.append(text); };
    const auto bare =
        ConnectedAppsModel::forThisMac("/nowhere", std::nullopt, "/Applications", around);
    bare->copyEndpoint();
    bare->scan();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bare->scanned(); }, 5000));
    EXPECT_EQ(pane.copied.size(), 2);
    EXPECT_TRUE(bare->apps().empty());
    EXPECT_EQ(bare->error(), u"Wendlow is not running from an installed app bundle, "
                             "so there is no binary here to point an app at."_s);
}

} // namespace
} // namespace wendlow
