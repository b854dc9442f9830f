#include "SettingsPictures.h"

#include "General/PrivacyModel.h"
#include "PosedGateway.h"
#include "Recording/RecordingControlModel.h"
#include "Recovery/RecoveryModel.h"
#include "StoreMessage.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <cstdint>
#include <vector>

namespace wendlow::SettingsPictures {

namespace {

using Answers = PosedGateway::Answers;

constexpr std::int64_t megabyte = std::int64_t{1} << 20U;
constexpr std::int64_t gigabyte = std::int64_t{1} << 30U;
constexpr const char* noDaemon = "Wendlow is not running.";

FrameStats frames(std::optional<std::int64_t> bytes, std::optional<PurgeProgress> purge = {}) {
    return {.screenshots = 11'482, .bytes = bytes, .purge = std::move(purge)};
}

Answers everyday() {
    DiskUsed disk{.text = 864 * megabyte,
                  .transcripts = 46 * megabyte,
                  .reel = 31 * gigabyte / 10,
                  .frames = 18 * gigabyte / 10};
    ReelStats reel{.meetings = 24, .bytes = disk.reel};
    return {
        {"diagnostic_logging_state", AnswerCase::Flag{false}},
        {"self_names",
         AnswerCase::NoteID{"self-names", std::vector<std::string>{"Mara Lindqvist", "Mara L."}}},
        {"frame_keep_state", AnswerCase::Flag{true}},
        {"reel_keep_state", AnswerCase::Flag{true}},
        {"frame_stats", AnswerCase::FrameStats{frames(disk.frames)}},
        {"reel_stats", AnswerCase::ReelStats{reel}},
        {"disk_used", AnswerCase::DiskUsed{disk}},
        {"log", AnswerCase::Ok{}}};
}

Answers with(Answers answers, Answers others) {
    others.merge(answers);
    return others;
}

/// Lets a model take its answers in, and what they set in motion begin.
void run() {
    for (int turn = 0; turn < 8; ++turn)
        QCoreApplication::processEvents();
}

/// `make` makes the model over a daemon with these answers.
template<class Make, class Stand>
void takeOf(const PanePictures& pictures, const char* state, Answers answers, const Make& make,
            const Stand& stand) {
    const auto daemon = std::make_shared<PosedGateway>(std::move(answers));
    auto model = make(std::make_shared<InProcessClient>(daemon));
    pictures.pose(model.get());
    run();
    stand(*model);
    run();
    pictures.save(QString::fromLatin1(state));
    pictures.pose(nullptr);
    // The face that looked at the model goes before it.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    model.reset();
    daemon->giveUp(); // who still waits would hold it for ever
}

} // namespace

void takeGeneral(const PanePictures& pictures) {
    const auto take = [&](const char* state, Answers answers, auto stand) {
        takeOf(
            pictures, state, std::move(answers),
            [](std::shared_ptr<WendlowClient> client) {
                return std::make_unique<PrivacyModel>(std::move(client),
                                                      PrivacyModel::Surroundings{});
            },
            stand);
    };
    const auto still = [](PrivacyModel&) {};
    const AnswerCase::Flag on{true};
    const AnswerCase::Flag off{false};
    const AnswerCase::FrameStats purging{frames(
        18 * gigabyte / 10,
        PurgeProgress{.daysRemaining = 6, .bytesRemaining = 18 * gigabyte / 10, .skipped = {}})};
    const AnswerCase::FrameStats skipped{frames(
        40 * megabyte,
        PurgeProgress{.daysRemaining = 3, .skipped = {"2026-11-02", "2026-11-03", "2026-11-04"}})};
    take("kept", everyday(), still);
    take("deleting",
         with(everyday(), {{"frame_keep_state", off},
                           {"frame_stats", purging},
                           {"diagnostic_logging_state", on}}),
         [](PrivacyModel& model) {
             model.setNames(QStringLiteral("Mara Lindqvist, Mara L., mlindqvist"));
         });
    take("not-cleared", with(everyday(), {{"frame_keep_state", off}, {"frame_stats", skipped}}),
         still);
    take("question", everyday(), [](PrivacyModel& model) { model.toggleFrameKeep(false); });
    take("question-unknown-size",
         with(everyday(), {{"frame_stats", AnswerCase::FrameStats{frames(std::nullopt)}}}),
         [](PrivacyModel& model) { model.toggleFrameKeep(false); });
    take("meetings-question", everyday(), [](PrivacyModel& model) { model.toggleReelKeep(false); });
    take("refused",
         with(everyday(), {{"set_frame_keep", AnswerCase::Unimplemented{"set_frame_keep"}},
                           {"frame_keep_state", off},
                           {"self_names", AnswerCase::Unimplemented{"self_names"}}}),
         [](PrivacyModel& model) {
             model.toggleFrameKeep(true);
             model.setNames(QStringLiteral("Mara"));
             model.saveSelfNames(model.names());
         });
    Answers nothing = everyday();
    for (auto& [verb, answer] : nothing)
        answer = AnswerCase::Failure{noDaemon};
    take("failed", std::move(nothing), still);
}

void takeRecording(const PanePictures& pictures) {
    const auto overApps = [](std::shared_ptr<WendlowClient> client) {
        const auto installed = [] {
            return std::vector<std::string>{"Calendar", "Mail",   "Messages", "Music",
                                            "Notes",    "Photos", "Terminal"};
        };
        return std::make_unique<RecordingControlModel>(
            std::move(client), AppChooser::Surroundings{.installed = installed, .choose = nullptr});
    };
    const auto take = [&](const char* state, std::vector<Rule> rules, auto stand) {
        Answers answers{{"get_rules", AnswerCase::Rules{std::move(rules)}},
                        {"favicons", AnswerCase::Icons{}}};
        takeOf(pictures, state, std::move(answers), overApps, stand);
    };
    auto rule = [number = 0](OpenCase<RuleKind> kind, const char* value,
                             OpenCase<RuleTier> tier) mutable {
        return Rule{.id = "r" + std::to_string(++number),
                    .kind = std::move(kind),
                    .value = value,
                    .tier = std::move(tier),
                    .origin = RuleOrigin::user,
                    .enabled = number != 2};
    };
    const auto still = [](RecordingControlModel&) {};
    std::vector<Rule> rules{rule(RuleKind::app, "Music", RuleTier::usageOnly),
                            rule(RuleKind::app, "Photos", RuleTier::usageOnly),
                            rule(RuleKind::site, "films.example.com", RuleTier::usageOnly),
                            rule(RuleKind::site, "radio.example.org", RuleTier::usageOnly),
                            rule(RuleKind::app, "Keys and passwords", RuleTier::never),
                            rule(RuleKind::app, "Messages", RuleTier::never),
                            rule(RuleKind::site, "bank.example.com", RuleTier::never),
                            rule(RuleKind::word, "salary", RuleTier::never),
                            rule(RuleKind::phrase, "birthday surprise", RuleTier::never)};
    take("rules", rules, still);
    take("adding", rules, [](RecordingControlModel& model) {
        model.groups()[5]->open();
        model.groups()[7]->open();
        model.groups()[7]->setTyped(QStringLiteral("my health"));
    });
    take("there-already", rules, [](RecordingControlModel& model) {
        model.groups()[6]->open();
        model.groups()[6]->setTyped(QStringLiteral("Salary"));
        model.groups()[6]->commit();
    });
    take("app-sheet", rules,
         [](RecordingControlModel& model) { model.chooser()->openFor(model.groups()[4]); });
    take("empty", {}, still);
    rules.push_back(rule(OpenCase<RuleKind>::ofWord("window"), "Ledger 2026", RuleTier::never));
    rules.push_back(rule(RuleKind::word, "draft", OpenCase<RuleTier>::ofWord("titleOnly")));
    for (int at = 1; at <= 60; ++at)
        rules.push_back(
            rule(RuleKind::site,
                 ("site-" + std::to_string(at) + ".a-rather-long-name.example.net").c_str(),
                 RuleTier::never));
    take("many", std::move(rules), still);
    takeOf(pictures, "failed", {{"get_rules", AnswerCase::Failure{noDaemon}}}, overApps, still);
}

void takeRecovery(const PanePictures& pictures) {
    const auto make = [](std::shared_ptr<WendlowClient> client) {
        return std::make_unique<RecoveryModel>(std::move(client), [](const QString&) {});
    };
    const auto take = [&](const char* state, const char* protection, Answers more, auto stand) {
        more.emplace("recovery_state", AnswerCase::Text{protection});
        takeOf(pictures, state, std::move(more), make, stand);
    };
    const auto still = [](RecoveryModel&) {};
    const auto unlock = [](RecoveryModel& model) {
        model.unlock(QStringLiteral("amber canvas orbit"));
    };
    const auto reveal = [](RecoveryModel& model) { model.revealOrHide(); };
    const AnswerCase::Phrase phrase{{"amber", "canvas", "orbit", "gentle", "harbor", "lemon",
                                     "meadow", "pepper", "quiet", "river", "saddle", "violin"}};
    const auto refused = [](const StoreMessage& message) {
        return AnswerCase::Failure{message.text()};
    };
    take("hidden", "armed", {}, still);
    take("revealed", "armed", {{"reveal_phrase", phrase}}, reveal);
    take("revealing", "armed", {}, reveal);
    take("no-phrase", "armed", {{"reveal_phrase", refused(StoreWord::revealHasNoKeyOnThisMac)}},
         reveal);
    take("locked", "locked", {}, still);
    take("plaintext", "plaintext", {}, still);
    take("refused", "locked", {{"enter_phrase", refused(StoreWord::phraseBadChecksum)}}, unlock);
    take("checking", "locked", {}, unlock);
    take("accepted", "locked", {{"enter_phrase", AnswerCase::Ok{}}}, unlock);
    takeOf(pictures, "unknown", {{"recovery_state", AnswerCase::Failure{noDaemon}}}, make, still);
}

} // namespace wendlow::SettingsPictures
