#include "ClientInstance.h"
#include "Files.h"
#include "InstallCancel.h"
#include "JourneyReceipts.h"
#include "LocalModelsDoor.h"
#include "MenuApplication.h"
#include "PlayedMachine.h"
#include "TemporaryHome.h"
#include "UpdateOptIn.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using testing::PlayedMachine;
using Row = LocalModelsProgress::Row;

constexpr const char* everyScreen[] = {"welcome", "screenrec", "accessibility", "mic",   "recovery",
                                       "ais",     "models",    "warming",       "hello", "done"};

/// A download of this process that stands still.
LocalModelsProgress download(const PlayedMachine& machine) {
    const double now = std::chrono::duration<double>(machine.now.time_since_epoch()).count();
    return {
        .pid = ::getpid(),
        .writtenAt = now,
        .running = true,
        .rows = {{.id = "model",
                  .label = "",
                  .state = "active",
                  .download = true,
                  .bytes = 500,
                  .totalBytes = 2000}},
        .samples = {},
        .installed = {.runtimeDir = "/r",
                      .ollama = LocalModelsProgress::OllamaInventory{"/o", true, {"theirs"}, now}}};
}

TEST(JourneyModel, LeadsToTheEndAndEndsTheApplication) {
    PlayedMachine machine;
    machine.walkTo("done");
    EXPECT_THAT(machine.wired, ElementsAre("claude-code"));
    EXPECT_TRUE(machine.logged("start: derived screen welcome"));
    EXPECT_TRUE(
        machine.logged("button: setup wendlow → screenrec · terms agreed · auto-install=true"));
    EXPECT_TRUE(machine.logged("poll: warming → hello"));
    EXPECT_TRUE(machine.logged("world: door=ok sr=true ax=true mic=true ai=true store=true "
                               "hello=true warm=true recovery=true terms=true models=no file"));
    machine.press();
    EXPECT_EQ(machine.ended, 1);
}

TEST(JourneyModel, HoldsWhileThereIsNoDaemonAndGoesOnWhenItIsBack) {
    for (const bool silent : {false, true}) {
        for (const std::string screen :
             {"welcome", "screenrec", "accessibility", "mic", "models", "warming", "hello"}) {
            PlayedMachine machine;
            machine.patience = std::chrono::milliseconds(silent ? 100 : 3000);
            machine.walkTo(screen);
            const auto there = machine.grants;
            machine.silent = silent;
            if (!silent)
                machine.grants.reset();
            machine.log.clear();
            machine.rounds();
            EXPECT_TRUE(machine.logged("door=NO ANSWER")) << screen;
            EXPECT_EQ(machine.screen(), screen) << silent;
            machine.answerAll();
            machine.grants = there;
            machine.log.clear();
            machine.rounds();
            EXPECT_TRUE(machine.logged("door=ok")) << screen;
            EXPECT_EQ(machine.screen(), screen);
        }
    }
}

TEST(JourneyModel, StartsWithoutADaemon) {
    PlayedMachine machine;
    machine.patience = std::chrono::milliseconds(20);
    machine.silent = true;
    machine.start();
    EXPECT_EQ(machine.screen(), "welcome");
    machine.root->setAgreedToTerms(true);
    machine.press();
    EXPECT_TRUE(machine.shows("screenrec"));
    EXPECT_FALSE(machine.root->isPrimaryEnabled());
}

TEST(JourneyModel, IsHeldByAPermissionThatIsTakenAway) {
    PlayedMachine machine;
    machine.walkTo("mic");
    machine.grants->microphone = true;
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.root->isPrimaryEnabled(); }));
    machine.grants->accessibility = false; // between the look and the press
    machine.root->press();
    EXPECT_TRUE(machine.shows("mic"));
    machine.grants = GrantPair{.microphoneDenied = true};
    machine.rounds();
    EXPECT_FALSE(machine.root->isPrimaryEnabled());
    EXPECT_THAT(machine.root->refusedLine().toStdString(),
                ::testing::StartsWith("Microphone was refused."));
    machine.root->ask();
    machine.rounds();
    EXPECT_TRUE(machine.root->isGranted());
    EXPECT_TRUE(machine.logged("button: request_grant(microphone) returned"));
}

TEST(JourneyModel, LeadsNobodyAwayWhosePermissionsAreTakenWhileTheyGoOn) {
    for (const std::string screen :
         {"accessibility", "mic", "recovery", "ais", "models", "warming", "hello", "done"}) {
        PlayedMachine machine;
        machine.walkTo(screen);
        machine.grants = GrantPair();
        if (machine.model().isPolling())
            machine.rounds();
        // Who only waits is led by what is true of the machine.
        EXPECT_TRUE(machine.shows(screen == "warming" ? "screenrec" : screen)) << screen;
        EXPECT_TRUE(!Journey::isPermission(machine.model().screen()) ||
                    !machine.root->isPrimaryEnabled());
    }
}

TEST(JourneyModel, ShowsTheWordsOnlyOnTheirScreenAndHoldsByThem) {
    PlayedMachine machine;
    machine.patience = std::chrono::milliseconds(100);
    machine.walkTo("recovery");
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.root->phrase().size() == 12; }));
    EXPECT_FALSE(machine.model().isPolling());
    machine.model().continueFromRecoveryKey();
    EXPECT_EQ(machine.screen(), "recovery") << "not ticked off";
    machine.root->goBack();
    EXPECT_TRUE(machine.root->phrase().isEmpty());
    EXPECT_FALSE(machine.model().lastPhrase());
    machine.silent = true;
    machine.root->returnForward();
    machine.root->goBack();
    machine.answerAll();
    QTest::qWait(10);
    EXPECT_FALSE(machine.model().lastPhrase()) << "words that come to a screen that was left";
    machine.silent = true;
    machine.root->returnForward();
    EXPECT_EQ(machine.screen(), "recovery");
    EXPECT_FALSE(machine.root->wroteItDown());
    EXPECT_TRUE(machine.root->isPhraseLoading());
    ASSERT_TRUE(PlayedMachine::until([&] { return !machine.root->phraseFailure().isEmpty(); }));
    machine.answerAll();
    EXPECT_TRUE(machine.root->phrase().isEmpty()) << "words that come too late";
    machine.press();
    EXPECT_EQ(machine.screen(), "ais") << "a key that cannot be shown holds nobody";
    EXPECT_TRUE(machine.recovery);
}

TEST(JourneyModel, RecordsWhatItPlugsInBeforeAndNotWhatWasRefused) {
    PlayedMachine machine;
    machine.codex->becomes(ConnectorState::connected);
    machine.walkTo("ais");
    machine.root->setWired(u"codex"_s, true); // is connected: not ours
    machine.refuses = true;
    machine.holds = true;
    machine.root->setWired(u"claude-code"_s, true);
    EXPECT_THAT(machine.wired, ElementsAre("claude-code")) << "on record before the files are";
    machine.root->setWired(u"claude-code"_s, true); // busy: ignored
    machine.letGo();
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.apps.idle(); }));
    EXPECT_THAT(machine.wired, ElementsAre());
    const auto* const rows = machine.root->apps();
    EXPECT_NE(rows->index(0, 0).data(JourneyAppsList::RefusalRole).toString(), u""_s);
    EXPECT_EQ(machine.root->allWords(), u"select all"_s);
    machine.refuses = false;
    machine.root->toggleAll();
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.apps.idle(); }));
    EXPECT_THAT(machine.wired, ElementsAre("claude-code"));
    EXPECT_EQ(machine.root->allWords(), u"unselect all"_s);
    machine.root->setWired(u"claude-code"_s, false);
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.apps.idle(); }));
    EXPECT_THAT(machine.wired, ElementsAre());
    EXPECT_THAT(machine.connected(), ElementsAre("codex"));
    EXPECT_THAT(machine.turns,
                ElementsAre("before claude-code found", "after claude-code found",
                            "before claude-code found", "after claude-code connected"))
        << "what was plugged in here, and that alone";
}

TEST(JourneyModel, LeavesOnRecordWhatAnotherProcessPutsThereAndUnplugsThatToo) {
    PlayedMachine machine;
    machine.walkTo("ais");
    machine.wired = {"codex"};
    machine.codex->becomes(ConnectorState::connected);
    for (const bool on : {true, false, true}) {
        machine.root->setWired(u"claude-code"_s, on);
        ASSERT_TRUE(PlayedMachine::until([&] { return machine.apps.idle(); }));
        EXPECT_EQ(machine.wired, on ? PlayedMachine::Words({"codex", "claude-code"})
                                    : PlayedMachine::Words({"codex"}));
    }
    machine.root->lookAgain();
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.connected().size() == 2; }));
    machine.root->askToCancel();
    machine.root->cancelInstall();
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.ended > 0; }));
    EXPECT_THAT(machine.cancelled, ElementsAre());
    EXPECT_THAT(machine.wired, ElementsAre());
}

TEST(JourneyModel, CancelledOnAnyScreenUnplugsItsOwnAlone) {
    for (const char* screen : everyScreen) {
        PlayedMachine machine;
        machine.codex->becomes(ConnectorState::connected);
        machine.walkTo(screen);
        machine.start(); // what an earlier run plugged in counts too
        machine.root->askToCancel();
        EXPECT_TRUE(machine.root->isConfirming());
        machine.root->cancelInstall();
        machine.root->cancelInstall();
        machine.root->keepGoing();
        EXPECT_TRUE(machine.root->isConfirming()) << "stays up";
        EXPECT_FALSE(machine.root->isPrimaryEnabled());
        ASSERT_TRUE(PlayedMachine::until([&] { return machine.ended > 0; })) << screen;
        EXPECT_EQ(machine.ended, 1);
        EXPECT_THAT(machine.cancelled, ElementsAre("codex")) << screen;
        std::erase_if(machine.turns,
                      [](const std::string& turn) { return !turn.starts_with("back"); });
        EXPECT_THAT(machine.turns, ElementsAre("back claude-code found", "back codex connected"))
            << "behind the removal";
        EXPECT_THAT(machine.wired, ElementsAre());
        EXPECT_FALSE(machine.model().isPolling());
    }
}

TEST(JourneyModel, CancelledWhileAToolIsBeingPluggedInUnplugsThat) {
    PlayedMachine machine;
    machine.walkTo("ais");
    machine.holds = true;
    machine.root->setWired(u"claude-code"_s, true);
    machine.root->askToCancel();
    machine.root->cancelInstall();
    machine.letGo();
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.ended > 0; }));
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.apps.idle(); }));
    EXPECT_THAT(machine.connected(), ElementsAre());
    EXPECT_TRUE(machine.logged("button: cancel install — unplugging "));
}

TEST(JourneyModel, SaysWhenTheDownloadCouldNotBeStopped) {
    PlayedMachine machine;
    machine.cancelEnd = CancelEnd::writerStillRuns;
    machine.walkTo("models");
    machine.root->askToCancel();
    machine.root->cancelInstall();
    ASSERT_TRUE(PlayedMachine::until([&] { return machine.root->hasCancelFailed(); }));
    EXPECT_EQ(machine.ended, 0);
    machine.root->closeCancelFailed();
    machine.root->closeCancelFailed();
    EXPECT_EQ(machine.ended, 1);
}

TEST(JourneyModel, WakesADeadWriterOnceAndAsksNoHelloMeanwhile) {
    PlayedMachine machine;
    machine.walkTo("models");
    machine.hellosAsked = 0;
    machine.rounds();
    EXPECT_EQ(machine.woken, 0) << "no file, nobody to wake";
    machine.progress = download(machine);
    machine.rounds();
    EXPECT_EQ(machine.woken, 0);
    machine.progress->pid = 0;
    machine.rounds(5);
    EXPECT_EQ(machine.woken, 1);
    EXPECT_EQ(machine.hellosAsked, 0);
    EXPECT_TRUE(machine.logged("models=0/1 writer=gone"));
}

TEST(JourneyModel, LooksBackWithoutLosingItsPlace) {
    PlayedMachine machine;
    machine.warm = true;
    machine.walkTo("hello");
    machine.root->goBack();
    machine.root->goBack();
    EXPECT_EQ(machine.screen(), "ais");
    EXPECT_FALSE(machine.model().isPolling());
    machine.root->returnForward();
    EXPECT_EQ(machine.screen(), "models");
    EXPECT_TRUE(machine.root->canReturn());
    machine.root->returnForward();
    EXPECT_EQ(machine.screen(), "hello");
    EXPECT_FALSE(machine.root->canReturn());
    EXPECT_TRUE(machine.model().isPolling());
    machine.root->goBack();
    machine.press();
    EXPECT_EQ(machine.screen(), "hello");
    EXPECT_FALSE(machine.root->canReturn());
    machine.root->jump(0);
    EXPECT_EQ(machine.screen(), "hello") << "the rail is no button";
}

TEST(JourneyModel, MayGoWhileItsQuestionsAreUnderWay) {
    for (const char* screen : {"welcome", "recovery", "models", "hello"}) {
        PlayedMachine machine;
        machine.patience = std::chrono::milliseconds(100);
        machine.walkTo(screen);
        machine.silent = true;
        machine.root->lookAgain();
        machine.root->press();
        QTest::qWait(10);
        machine.root.reset();
        machine.answerAll();
        QTest::qWait(120); // past the limit of an answer
    }
}

TEST(JourneyRoot, TellsAReaderWhereOneStands) {
    PlayedMachine machine;
    machine.walkTo("accessibility");
    EXPECT_EQ(machine.root->railSpoken(), u"step 2 of 6"_s);
    EXPECT_EQ(machine.root->rail().at(0).toMap()[u"spoken"_s], u"Welcome, step 1 of 6, done"_s);
    EXPECT_EQ(machine.root->stepper().at(1).toMap()[u"mark"_s], u"current"_s);
    EXPECT_EQ(machine.root->stepperLines(165, 24, 8).at(0).toMap()[u"done"_s], true);
    const QSignalSpy said(machine.root.get(), &JourneyRoot::said);
    machine.grants->accessibility = true;
    machine.rounds();
    machine.press();
    ASSERT_TRUE(machine.shows("mic"));
    EXPECT_EQ(said.at(0).at(0), u"✓ Permission granted"_s);
    EXPECT_EQ(said.at(1).at(0), u"Microphone, step 2 of 6"_s);
    EXPECT_EQ(said.size(), 2);
}

TEST(JourneyRoot, ShowsTheDownloadAsFarAsItCanBeTrue) {
    PlayedMachine machine;
    machine.progress = download(machine);
    machine.walkTo("models");
    auto* const rows = machine.root->models();
    const QAbstractItemModelTester tester(rows,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto shown = [&](int role) { return rows->index(0, 0).data(role); };
    EXPECT_EQ(shown(LocalModelsList::LineRole), u"500 B of 2 KB"_s);
    EXPECT_EQ(shown(LocalModelsList::FractionRole), 0.25);
    EXPECT_EQ(machine.root->modelsLine(), u"500 B of 2 KB so far."_s);
    machine.now += std::chrono::seconds(61);
    machine.rounds();
    EXPECT_EQ(shown(LocalModelsList::StateRole), u"waiting"_s) << "it has not written for a minute";
    machine.now -= std::chrono::seconds(120);
    machine.rounds();
    EXPECT_EQ(shown(LocalModelsList::FractionRole), -1) << "it is of the future";
    EXPECT_EQ(machine.root->modelsLine(), u""_s);
    machine.progress.reset();
    machine.rounds();
    EXPECT_EQ(rows->rowCount(), 0);
    EXPECT_NE(machine.root->modelsWords(), u""_s);
    EXPECT_TRUE(machine.root->offersCancel());
}

TEST(JourneyRoot, TellsInAdvanceWhatACancelTakes) {
    PlayedMachine machine;
    machine.walkTo("models");
    machine.root->askToCancel();
    EXPECT_THAT(machine.root->confirmRemovesTitle().toStdString(),
                ::testing::StartsWith("Nothing has been"));
    EXPECT_EQ(machine.root->confirmKeepsTitle(), u""_s);
    machine.root->keepGoing();
    machine.progress = download(machine);
    machine.rounds();
    machine.root->askToCancel();
    EXPECT_EQ(machine.root->confirmRemovesTitle(), u"Wendlow will remove:"_s);
    EXPECT_THAT(machine.root->confirmRemoves(), ElementsAre(u"/r"_s));
    EXPECT_THAT(machine.root->confirmKeeps(),
                ElementsAre(u"your existing Ollama model stays (theirs)"_s));
}

/// The real end of a cancel, in a home of its own, with nobody on the bus.
class InstallCancelled : public ::testing::Test {
protected:
    testing::TemporaryHome m_home;
    QByteArray m_before = qgetenv("HOME");
    std::filesystem::path m_support = m_home / "Library/Application Support/Wendlow";
    std::filesystem::path m_file = m_support / LocalModelsProgress::fileName;
    std::vector<std::string> m_log;

    InstallCancelled() {
        qputenv("HOME", m_home.path().c_str());
        TermsReceipt::markAgreed(TermsReceipt::path(m_support));
        RecoveryKeyReceipt::markPassed(RecoveryKeyReceipt::path(m_support));
        JourneyWiringReceipt::write({}, JourneyWiringReceipt::path(m_support));
        UpdateOptIn::write(UpdateOptIn::Choice::yes, ClientInstance::menubarID);
        testing::put(m_support / "models/runtime/bin", "");
    }
    ~InstallCancelled() override { qputenv("HOME", m_before); }

    LocalModelsProgress progress(std::int32_t pid) const {
        return {.pid = pid,
                .writtenAt = 1,
                .running = true,
                .rows = {},
                .samples = {},
                .installed = {.runtimeDir = (m_support / "models").string()}};
    }
    CancelEnd run(std::optional<LocalModelsProgress> last) {
        DistributedNotificationCenter nobody;
        const auto log = [this](const std::string& line) { m_log.push_back(line); };
        auto undo = LocalModelsUndo::Surroundings::current();
        undo.log = [](const std::string&) {};
        InstallCancel::Surroundings around{
            .notifications = nobody,
            .support = m_support,
            .undo = undo,
            .limits = {std::chrono::milliseconds(60), std::chrono::milliseconds(5)},
            .log = log};
        return QCoro::waitFor(InstallCancel::run(std::move(last), std::move(around)));
    }
};

TEST_F(InstallCancelled, LeavesNothingBehindADeadWriter) {
    LocalModelsDoor::writeReceipt(LocalModelsDoor::receiptPath(m_support)); // of an earlier cancel
    ASSERT_TRUE(progress(0).write(m_file));
    EXPECT_EQ(run(std::nullopt), CancelEnd::stopped);
    EXPECT_EQ(m_log.back(), "cancel-install: menu app receipt NOT seen within 10s");
    EXPECT_FALSE(std::filesystem::exists(m_support));
    EXPECT_FALSE(std::filesystem::exists(m_home / "Library/Preferences"));
}

TEST_F(InstallCancelled, UndoesBehindADeafWriterAndSaysThatItRuns) {
    testing::put(m_support / "theirs", "");
    ASSERT_TRUE(progress(::getpid()).write(m_file));
    EXPECT_EQ(run(progress(0)), CancelEnd::writerStillRuns) << "the file knows better";
    EXPECT_THAT(testing::namesIn(m_support), ElementsAre("local-models-progress.json", "theirs"));
}

TEST_F(InstallCancelled, TakesWhatAWriterPutsDownWhileItIsWaitedFor) {
    ASSERT_TRUE(progress(::getpid()).write(m_file));
    QTimer::singleShot(20, [this] {
        auto later = progress(::getpid());
        later.installed.runtimeDir.reset(); // undone there, for all that it says
        later.installed.senkoDir = testing::put(m_home / "voices/bin", "").parent_path().string();
        ASSERT_TRUE(later.write(m_file));
    });
    EXPECT_EQ(run(std::nullopt), CancelEnd::writerStillRuns);
    EXPECT_FALSE(std::filesystem::exists(m_home / "voices"));
    EXPECT_FALSE(std::filesystem::exists(m_support / "models"));
}

TEST_F(InstallCancelled, BelievesTheReceiptOfThisCancel) {
    QTimer::singleShot(
        20, [this] { LocalModelsDoor::writeReceipt(LocalModelsDoor::receiptPath(m_support)); });
    EXPECT_EQ(run(progress(::getpid())), CancelEnd::stopped);
    EXPECT_EQ(m_log.back(), "cancel-install: menu app receipt seen");
    EXPECT_FALSE(std::filesystem::exists(m_support));
}

TEST(MenuApplication, IsStartedAsItsDesktopEntrySays) {
    using MenuApplication::commandIn;
    const auto command =
        commandIn("[Other]\nExec=no\n[Desktop Entry]\nName=W\n"
                  "Exec=\"/opt/W M/menu\" --x %U 100%%\n[Desktop Action a]\nExec=no\n");
    ASSERT_TRUE(command);
    EXPECT_THAT(*command, ElementsAre("/opt/W M/menu", "--x", "100%"));
    for (const char* other :
         {"", "Exec=menu", "[Desktop Entry]\nExec=\n", "[Desktop Entry]\nExec=%U"})
        EXPECT_EQ(commandIn(other), std::nullopt) << other;
}

} // namespace
} // namespace wendlow
