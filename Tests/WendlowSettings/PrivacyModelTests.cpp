#include "General/PrivacyModel.h"
#include "PlayedDaemon.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::PlayedDaemon;
using Verbs = std::vector<std::string>;

constexpr std::int64_t megabyte = std::int64_t{1} << 20U;

GatewayResponse frames(std::int64_t count, std::optional<std::int64_t> bytes,
                       std::optional<PurgeProgress> purge = std::nullopt) {
    return AnswerCase::FrameStats{
        FrameStats{.screenshots = count, .bytes = bytes, .purge = std::move(purge)}};
}

/// The pane over a daemon that keeps everything, with a clock that a test turns.
struct General : ::testing::Test {
    General() {
        daemon->answer("diagnostic_logging_state", {AnswerCase::Flag{false}});
        daemon->answer("self_names", {AnswerCase::NoteID{"self-names", Verbs{"Ann", "Bob"}}});
        daemon->answer("frame_keep_state", {AnswerCase::Flag{true}});
        daemon->answer("reel_keep_state", {AnswerCase::Flag{true}});
        daemon->answer("frame_stats", {frames(20, 5 * megabyte)});
        daemon->answer("reel_stats", {AnswerCase::ReelStats{ReelStats{.meetings = 2, .bytes = 1}}});
        daemon->answer("disk_used", {AnswerCase::DiskUsed{DiskUsed{.text = megabyte}}});
        daemon->answer("log", {AnswerCase::Ok{}});
        for (const char* verb : {"set_frame_keep", "set_reel_keep", "set_diagnostic_logging"})
            daemon->answer(verb, {AnswerCase::Ok{}});
    }
    ~General() override {
        model.reset();
        daemon->release();
        for (const auto& [time, handle] : std::exchange(sleepers, {}))
            handle.resume();
    }

    struct Sleeper {
        General& test;
        std::chrono::milliseconds time;
        bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> handle) const {
            test.sleepers.emplace_back(time, handle);
        }
        void await_resume() const noexcept {}
    };
    QCoro::Task<> sleep(std::chrono::milliseconds time) { co_await Sleeper{*this, time}; }
    /// Lets the one who sleeps wake up; gives how long it wanted to.
    std::chrono::milliseconds wake() {
        EXPECT_EQ(sleepers.size(), 1U) << "at most one poll runs";
        if (sleepers.empty())
            return 0ms;
        const auto [time, handle] = sleepers.front();
        sleepers.erase(sleepers.begin());
        handle.resume();
        return time;
    }
    void load() {
        model->load();
        daemon->newlyAsked();
    }

    std::shared_ptr<PlayedDaemon> daemon = std::make_shared<PlayedDaemon>();
    std::vector<std::pair<std::chrono::milliseconds, std::coroutine_handle<>>> sleepers;
    std::unique_ptr<PrivacyModel> model = std::make_unique<PrivacyModel>(
        daemon, PrivacyModel::Surroundings{
                    .sleep = [this](std::chrono::milliseconds time) { return sleep(time); }});
};

const Verbs everything{"diagnostic_logging_state",
                       "self_names",
                       "frame_keep_state",
                       "reel_keep_state",
                       "frame_stats",
                       "reel_stats",
                       "disk_used"};

TEST_F(General, AsksInOrderAndKeepsWhatComes) {
    EXPECT_FALSE(model->frameKeep()->isKnown());
    EXPECT_EQ(model->used(), (QStringList{u"—"_s, u"—"_s, u"—"_s, u"—"_s}));
    model->load();
    EXPECT_EQ(daemon->newlyAsked(), everything);
    EXPECT_THAT(daemon->sent, Contains(R"({"notes":{"_0":{"selfNames":{}}}})"));
    EXPECT_TRUE(model->frameKeep()->isOn() && model->reelKeep()->isOn());
    EXPECT_EQ(model->names(), u"Ann, Bob"_s);
    EXPECT_EQ(model->used(), (QStringList{u"1 MB"_s, u"0 MB"_s, u"0 MB"_s, u"—"_s}));
    EXPECT_TRUE(sleepers.empty()) << "nothing is being worked out";
}

/// Each question in turn is refused, too new, or answered by something else: what was there stays.
TEST_F(General, KeepsTheLastGoodValuesWhateverIsAnswered) {
    load();
    const QStringList used = model->used();
    for (const GatewayResponse& fault :
         {GatewayResponse(AnswerCase::Failure{"away"}),
          GatewayResponse(AnswerCase::Unimplemented{}), GatewayResponse(AnswerCase::LineDelete{})})
        for (const std::string& verb : everything) {
            const auto good = std::exchange(daemon->answers[verb], {fault});
            model->load();
            daemon->answers[verb] = good;
            EXPECT_EQ(daemon->newlyAsked(), everything) << "the others are asked all the same";
            EXPECT_EQ(model->used(), used);
            EXPECT_TRUE(model->frameKeep()->isOn() && model->reelKeep()->isOn()) << verb;
            EXPECT_EQ(model->names(), u"Ann, Bob"_s);
            EXPECT_EQ(model->error(), QString());
        }
    daemon->answers.clear();
    const auto away = std::make_unique<PrivacyModel>(daemon, PrivacyModel::Surroundings{});
    away->load();
    EXPECT_EQ(away->error(), u"the daemon is away"_s);
    EXPECT_FALSE(away->frameKeep()->isKnown()) << "a switch that was never read shows no state";
}

TEST_F(General, TurnsOffOnlyAfterItsQuestion) {
    load();
    model->toggleFrameKeep(false);
    EXPECT_TRUE(model->confirmingFrameKeepOff());
    EXPECT_THAT(model->frameKeepQuestion().toStdString(), HasSubstr("20 screenshots (about 5 MB)"));
    model->cancelFrameKeepOff();
    EXPECT_FALSE(model->confirmingFrameKeepOff());
    EXPECT_TRUE(model->frameKeep()->isOn());
    EXPECT_EQ(daemon->newlyAsked(), Verbs());

    model->toggleFrameKeep(false);
    daemon->answer("frame_keep_state", {AnswerCase::Flag{false}});
    model->confirmFrameKeepOff();
    EXPECT_EQ(daemon->newlyAsked(), (Verbs{"set_frame_keep", "frame_keep_state", "reel_keep_state",
                                           "frame_stats", "reel_stats", "disk_used"}));
    EXPECT_FALSE(model->frameKeep()->isOn());
    model->confirmFrameKeepOff();
    EXPECT_EQ(daemon->newlyAsked(), Verbs()) << "there is no question";

    daemon->answer("frame_stats", {frames(0, 0)});
    load();
    model->toggleFrameKeep(false);
    EXPECT_THAT(daemon->newlyAsked(), Contains("set_frame_keep")) << "there is nothing to lose";
    EXPECT_FALSE(model->confirmingFrameKeepOff());

    model->toggleReelKeep(false);
    EXPECT_EQ(daemon->newlyAsked(), Verbs{"reel_stats"});
    EXPECT_TRUE(model->confirmingReelKeepOff());
    model->confirmReelKeepOff();
    EXPECT_EQ(daemon->newlyAsked(), (Verbs{"set_reel_keep", "reel_keep_state", "disk_used"}));
    daemon->answer("reel_stats", {AnswerCase::ReelStats{}});
    model->toggleReelKeep(false);
    EXPECT_EQ(daemon->newlyAsked(),
              (Verbs{"reel_stats", "set_reel_keep", "reel_keep_state", "disk_used"}));
    daemon->answer("reel_stats", {AnswerCase::Failure{"away"}});
    model->toggleReelKeep(false);
    EXPECT_TRUE(model->confirmingReelKeepOff()) << "who does not know asks";
}

TEST_F(General, ARefusedWriteSnapsBackAndIsNoted) {
    load();
    daemon->answer("set_diagnostic_logging", {AnswerCase::Failure{"no room"}, AnswerCase::Ok{}});
    model->toggleDiagnosticLogging(true);
    EXPECT_FALSE(model->diagnosticLogging()->isOn());
    EXPECT_EQ(model->diagnosticLogging()->refusal(), u"no room"_s);
    model->load();
    EXPECT_EQ(model->diagnosticLogging()->refusal(), u"no room"_s) << "until the next write";
    QCoreApplication::processEvents(); // notes go out by themselves
    EXPECT_THAT(daemon->sent,
                Contains(HasSubstr(R"("line":"set_diagnostic_logging refused — no room")")));
    model->toggleDiagnosticLogging(true);
    EXPECT_TRUE(model->diagnosticLogging()->isOn());
    EXPECT_EQ(model->diagnosticLogging()->refusal(), QString());
    daemon->answer("set_frame_keep", {AnswerCase::Unimplemented{"set_frame_keep"}});
    model->toggleFrameKeep(true);
    EXPECT_THAT(model->frameKeep()->refusal().toStdString(), HasSubstr("set_frame_keep yet — "));
}

TEST_F(General, WhileAWriteIsUnderWayTheSwitchShowsTheLastWord) {
    load();
    daemon->held = {"set_reel_keep"};
    daemon->answer("reel_keep_state", {AnswerCase::Flag{false}});
    model->toggleReelKeep(true);
    EXPECT_TRUE(model->reelKeep()->isOn());
    EXPECT_TRUE(model->reelKeep()->isWriting());
    const std::size_t asked = daemon->asked.size();
    model->toggleReelKeep(true);
    model->toggleReelKeep(false);
    EXPECT_EQ(daemon->asked.size(), asked) << "no second write";
    daemon->release();
    EXPECT_FALSE(model->reelKeep()->isWriting());
    EXPECT_FALSE(model->reelKeep()->isOn()) << "what was read back counts";

    // An answer on its way since before a write says nothing about what came of it.
    daemon->held = {"reel_keep_state"};
    model->load();
    daemon->held.clear();
    daemon->answer("reel_keep_state", {AnswerCase::Flag{true}, AnswerCase::Flag{false}});
    model->toggleReelKeep(true);
    EXPECT_TRUE(model->reelKeep()->isOn());
    daemon->release();
    EXPECT_TRUE(model->reelKeep()->isOn());
}

TEST_F(General, SavesNamesAndNeverOverwritesWhatIsTyped) {
    load();
    EXPECT_FALSE(model->namesCanBeSaved());
    model->setNames(u"Ann,  Bob"_s);
    EXPECT_FALSE(model->namesCanBeSaved());
    model->setNames(u"Cy, Ann "_s);
    EXPECT_TRUE(model->namesCanBeSaved());
    model->load();
    EXPECT_EQ(model->names(), u"Cy, Ann "_s);
    const std::pair<GatewayResponse, const char*> faults[] = {
        {AnswerCase::Failure{"no"}, "no"},
        {AnswerCase::Unimplemented{"self_names"},
         "This Mac is still running an older Wendlow daemon, which cannot save your names yet. "
         "Quitting and reopening Wendlow picks up the new one."},
        {AnswerCase::Ok{}, "Wendlow answered that with something this app does not understand."},
        {AnswerCase::Flag{}, "Wendlow answered that with something this app does not understand."},
    };
    for (const auto& [answer, words] : faults) {
        daemon->answer("self_names", {answer});
        model->saveSelfNames(model->names());
        EXPECT_EQ(model->selfNamesRefusal().toStdString(), words);
        EXPECT_EQ(model->names(), u"Cy, Ann "_s);
    }
    daemon->answer("self_names", {AnswerCase::NoteID{"self-names", Verbs{"Cy", "Ann"}}});
    daemon->held = {"self_names"};
    model->saveSelfNames(model->names());
    const std::size_t asked = daemon->asked.size();
    model->saveSelfNames(u"Di"_s);
    EXPECT_EQ(daemon->asked.size(), asked);
    daemon->release();
    EXPECT_THAT(daemon->sent, Contains(HasSubstr(R"("selfNames":{"names":["Cy","Ann"]})")));
    EXPECT_EQ(model->names(), u"Cy, Ann"_s) << "as the daemon holds them";
    EXPECT_EQ(model->selfNamesRefusal(), QString());
}

TEST_F(General, PollsWhileSomethingIsWorkedOutAndNoLonger) {
    daemon->answer("frame_keep_state", {AnswerCase::Flag{false}});
    const auto purge = [](std::int64_t days, std::optional<std::int64_t> bytes) {
        return frames(9, bytes,
                      PurgeProgress{.daysRemaining = days, .bytesRemaining = bytes, .skipped = {}});
    };
    const GatewayResponse away = AnswerCase::Failure{"away"};
    daemon->answer("frame_stats", {purge(3, std::nullopt), purge(5, 8 * megabyte), away, away, away,
                                   away, purge(1, megabyte), frames(0, 0)});
    load();
    EXPECT_EQ(model->purge(), u"Deleting… 3 days left"_s);
    model->startPollingIfNeeded();
    EXPECT_EQ(wake(), 2s);
    EXPECT_EQ(model->purge(), u"Deleting… 5 days left, 8 MB"_s) << "even backwards";
    for (const auto pause : {2s, 2s, 2s, 10s})
        EXPECT_EQ(wake(), pause);
    EXPECT_EQ(model->purge(), u"Deleting… 5 days left, 8 MB"_s);
    EXPECT_EQ(wake(), 10s);
    EXPECT_EQ(model->purge(), u"Deleting… 1 day left, 1 MB"_s);
    EXPECT_EQ(wake(), 2s);
    EXPECT_EQ(model->purge(), QString());
    EXPECT_EQ(daemon->asked.back(), "disk_used");
    EXPECT_TRUE(sleepers.empty());
}

TEST_F(General, PollsForTheSizeInAQuestionAndEndsWithThePane) {
    daemon->answer("frame_stats", {AnswerCase::Failure{"away"}});
    load();
    EXPECT_TRUE(sleepers.empty());
    model->toggleFrameKeep(false);
    EXPECT_EQ(sleepers.size(), 1U);
    EXPECT_THAT(model->frameKeepQuestion().toStdString(), HasSubstr("all your screenshots"));
    daemon->answer("frame_stats", {frames(4, std::nullopt)});
    wake();
    EXPECT_THAT(model->frameKeepQuestion().toStdString(), HasSubstr("working out the size…"));
    model->left();
    daemon->newlyAsked();
    wake();
    EXPECT_EQ(daemon->newlyAsked(), Verbs()) << "nobody looks any more";
    load();
    EXPECT_EQ(sleepers.size(), 1U);
    model->left();
    wake();
    daemon->held = {"disk_used"};
    model->load();
    model->left();
    daemon->release();
    EXPECT_TRUE(sleepers.empty()) << "nor is it begun when the last answer comes late";
    load();
    model.reset();
    wake();
    EXPECT_EQ(daemon->newlyAsked(), Verbs());
}

TEST_F(General, MayGoWhileItsQuestionsAreUnderWay) {
    for (const char* const verb : {"frame_keep_state", "set_frame_keep", "self_names"}) {
        model = std::make_unique<PrivacyModel>(daemon, PrivacyModel::Surroundings{});
        daemon->held = {verb};
        model->load();
        model->toggleFrameKeep(true);
        model->saveSelfNames(u"Di"_s);
        model.reset();
        daemon->release();
    }
}

} // namespace
} // namespace wendlow
