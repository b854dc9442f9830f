#include "Files.h"
#include "FullDisk.h"
#include "JourneyReceipts.h"
#include "JourneyWords.h"
#include "OnboardingTrigger.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

#include <functional>

namespace wendlow {
namespace {

using Screen = JourneyScreen;
using Mark = JourneyMark;
using ::testing::ElementsAre;
using testing::put;
using testing::TemporaryHome;

/// Words for what holds: t(erms), s(creen), a(ccessibility), m(icrophone), r(ecovery), w(ired),
/// d(atabase), h(ello), W(arm).
JourneyWorld world(std::string_view holds) {
    const auto has = [&](char letter) { return holds.find(letter) != std::string_view::npos; };
    return {.screenRecording = has('s'),
            .accessibility = has('a'),
            .microphone = has('m'),
            .aiWired = has('w'),
            .storePresent = has('d'),
            .helloReceived = has('h'),
            .warm = has('W'),
            .recoveryPassed = has('r'),
            .termsAgreed = has('t')};
}

TEST(Journey, LandsAndGoesOnWhereTheWorldSays) {
    struct Case {
        const char* holds;
        Screen derived;
        Screen afterSetup;
    };
    const Case cases[] = {
        {"", Screen::welcome, Screen::screenRecording},
        {"samrwdhW", Screen::welcome, Screen::screenRecording},
        {"t", Screen::welcome, Screen::screenRecording},
        {"tmrd", Screen::welcome, Screen::screenRecording},
        {"ta", Screen::screenRecording, Screen::screenRecording},
        {"tw", Screen::screenRecording, Screen::screenRecording},
        {"tamrwdhW", Screen::screenRecording, Screen::screenRecording},
        {"ts", Screen::screenRecording, Screen::screenRecording},
        {"tsmrwdhW", Screen::screenRecording, Screen::screenRecording},
        {"tsa", Screen::microphone, Screen::microphone},
        {"tsarwdhW", Screen::microphone, Screen::microphone},
        {"tsam", Screen::recoveryKey, Screen::recoveryKey},
        {"tsamwdhW", Screen::recoveryKey, Screen::recoveryKey},
        {"tsamr", Screen::plugIn, Screen::plugIn},
        {"tsamrdhW", Screen::plugIn, Screen::plugIn},
        {"tsamrw", Screen::warming, Screen::warming},
        {"tsamrwd", Screen::warming, Screen::warming},
        {"tsamrwh", Screen::warming, Screen::warming},
        {"tsamrwW", Screen::sayHello, Screen::sayHello},
        {"tsamrwhW", Screen::sayHello, Screen::sayHello}, // no store: not done
        {"tsamrwdh", Screen::done, Screen::done},
        {"tsamrwdhW", Screen::done, Screen::done},
    };
    for (const auto& [holds, derived, afterSetup] : cases) {
        EXPECT_EQ(text(Journey::derive(world(holds))), text(derived)) << holds;
        EXPECT_EQ(text(Journey::afterSetup(world(holds))), text(afterSetup)) << holds;
    }
}

TEST(Journey, AdvancesByOneStepAndNeverBack) {
    struct Case {
        Screen from;
        const char* holds;
        Screen to;
    };
    const Case cases[] = {
        {Screen::screenRecording, "tam", Screen::screenRecording},
        {Screen::screenRecording, "ts", Screen::accessibility},
        {Screen::screenRecording, "tsa", Screen::microphone},
        {Screen::screenRecording, "tsam", Screen::recoveryKey},
        {Screen::screenRecording, "tsamr", Screen::plugIn},
        {Screen::accessibility, "ts", Screen::accessibility},
        {Screen::accessibility, "ta", Screen::microphone}, // recording taken away meanwhile
        {Screen::microphone, "tsm", Screen::microphone},   // accessibility taken away
        {Screen::microphone, "tsa", Screen::microphone},
        {Screen::microphone, "tam", Screen::recoveryKey},
        {Screen::welcome, "tsa", Screen::microphone},
        {Screen::warming, "tsamrw", Screen::warming},
        {Screen::warming, "tsamrwW", Screen::sayHello},
        {Screen::warming, "tsamrW", Screen::plugIn},
    };
    for (const auto& [from, holds, to] : cases)
        EXPECT_EQ(text(Journey::advanced(from, world(holds))), text(to)) << text(from) << holds;
    for (const auto held :
         {Screen::recoveryKey, Screen::plugIn, Screen::localModels, Screen::sayHello, Screen::done})
        for (const char* holds : {"", "tsamrwdhW"})
            EXPECT_EQ(Journey::advanced(held, world(holds)), held);
}

TEST(Journey, NamesItsScreensAndTheirNeighbours) {
    EXPECT_EQ(journeyScreenNamed("SayHello"), std::nullopt);
    EXPECT_EQ(journeyScreenNamed("ScreenREC"), Screen::screenRecording);
    std::string forth;
    for (auto at = std::optional(Screen::welcome); at; at = Journey::next(*at)) {
        EXPECT_EQ(journeyScreenNamed(text(*at)), at);
        const auto before = Journey::previous(*at);
        EXPECT_TRUE(!before || Journey::next(*before) == at);
        forth += std::string(text(*at)) + ' ';
    }
    EXPECT_EQ(forth, "welcome screenrec accessibility mic recovery ais models hello done ");
    EXPECT_EQ(Journey::previous(Screen::done), std::nullopt);
    EXPECT_EQ(Journey::previous(Screen::warming), Screen::localModels);
}

TEST(Journey, MarksTheRailAndTheStepper) {
    const auto rail = [](Screen on) {
        std::string marks;
        for (const JourneyStep step : JourneySteps::all)
            marks += "dc."[static_cast<int>(JourneySteps::mark(step, on))];
        return marks;
    };
    EXPECT_EQ(rail(Screen::welcome), "c.....");
    EXPECT_EQ(rail(Screen::screenRecording), "dc....");
    EXPECT_EQ(rail(Screen::microphone), "dc....");
    EXPECT_EQ(rail(Screen::localModels), "ddddc.");
    EXPECT_EQ(rail(Screen::warming), "dddddc");
    EXPECT_EQ(rail(Screen::done), "dddddd");
    for (const JourneyStep step : JourneySteps::all)
        EXPECT_EQ(JourneySteps::mark(step, JourneySteps::first(step)), Mark::current);
    EXPECT_EQ(JourneySteps::first(JourneyStep::sayHello), Screen::sayHello);

    using PermissionStepper::marks;
    const GrantPair both{.screenRecording = true, .accessibility = true, .microphone = true};
    EXPECT_EQ(marks(Screen::plugIn, both), std::nullopt);
    EXPECT_THAT(*marks(Screen::screenRecording, both),
                ElementsAre(Mark::current, Mark::todo, Mark::todo));
    EXPECT_THAT(*marks(Screen::accessibility, both),
                ElementsAre(Mark::done, Mark::current, Mark::todo));
    EXPECT_THAT(*marks(Screen::microphone, std::nullopt),
                ElementsAre(Mark::todo, Mark::todo, Mark::current));
    EXPECT_THAT(PermissionStepper::lineSpans({.count = 3, .column = 165, .circle = 24, .gap = 8}),
                ElementsAre(PermissionStepper::LineSpan{102.5, 125},
                            PermissionStepper::LineSpan{267.5, 125}));
    EXPECT_TRUE(
        PermissionStepper::lineSpans({.count = 1, .column = 9, .circle = 2, .gap = 1}).empty());
}

TEST(OnboardingTrigger, OpensOnlyForAReason) {
    const auto answer = [](std::initializer_list<GrantRow> rows) { return GrantsAnswer{rows}; };
    const GrantRow screen{"screen_recording", "granted", ""};
    const GrantRow access{"accessibility", "granted", ""};
    const GrantRow microphone{"microphone", "granted", ""};
    const OnboardingTrigger::Facts whole{.storePresent = true,
                                         .grants = answer({screen, access, microphone}),
                                         .helloReceived = true,
                                         .recoveryPassed = true,
                                         .termsAgreed = true};
    struct Case {
        const char* what;
        std::function<void(OnboardingTrigger::Facts&)> change;
        bool opens;
    };
    const Case cases[] = {
        {"all is done", [](auto&) {}, false},
        {"no terms", [](auto& facts) { facts.termsAgreed = false; }, true},
        {"no store", [](auto& facts) { facts.storePresent = false; }, true},
        {"no daemon",
         [](auto& facts) {
             facts.grants.reset();
             facts.recoveryPassed = false;
         },
         false},
        {"no terms and no daemon",
         [](auto& facts) {
             facts.grants.reset();
             facts.termsAgreed = false;
         },
         true},
        {"a kind lacks", [&](auto& facts) { facts.grants = answer({screen, access}); }, true},
        {"a kind is denied",
         [&](auto& facts) {
             facts.grants = answer({screen, {"accessibility", "denied", ""}, microphone});
         },
         true},
        {"no recovery", [](auto& facts) { facts.recoveryPassed = false; }, true},
        {"hello unknown", [](auto& facts) { facts.helloReceived.reset(); }, false},
        {"no hello", [](auto& facts) { facts.helloReceived = false; }, true},
    };
    for (const auto& [what, change, opens] : cases) {
        OnboardingTrigger::Facts facts = whole;
        change(facts);
        EXPECT_EQ(OnboardingTrigger::shouldOpenJourney(facts), opens) << what;
    }
    EXPECT_EQ(OnboardingTrigger::grantPair(answer({{"camera", "granted", ""}})), std::nullopt);
    EXPECT_EQ(OnboardingTrigger::grantPair(answer({screen, {"microphone", "denied", ""}})),
              (GrantPair{.screenRecording = true, .microphoneDenied = true}));
}

TEST(OnboardingTrigger, ReadsTheHelloOnlyFromAList) {
    using OnboardingTrigger::helloReceived;
    EXPECT_EQ(helloReceived(AnswerCase::KindCards{"/", {}}), false);
    EXPECT_EQ(helloReceived(AnswerCase::KindCards{"/", {Card{}}}), true);
    EXPECT_EQ(helloReceived(AnswerCase::Cards{{Card{}}}), true);
    EXPECT_EQ(helloReceived(AnswerCase::Failure{"gone"}), std::nullopt);
    EXPECT_EQ(helloReceived(AnswerCase::Ok{}), std::nullopt);
}

TEST(JourneyReceipts, AreFilesAndNothingElse) {
    const TemporaryHome home;
    const auto support = home / "Library/Application Support/Wendlow";
    const auto terms = TermsReceipt::path(support);
    EXPECT_FALSE(TermsReceipt::isAgreed(terms));
    TermsReceipt::markAgreed(terms);
    EXPECT_TRUE(TermsReceipt::isAgreed(terms));
    EXPECT_EQ(testing::get(terms), "");
    EXPECT_FALSE(RecoveryKeyReceipt::isPassed(RecoveryKeyReceipt::path(support)));
    RecoveryKeyReceipt::markPassed(RecoveryKeyReceipt::path(support));
    EXPECT_TRUE(RecoveryKeyReceipt::isPassed(RecoveryKeyReceipt::path(support)));

    // Where a folder stands nobody has agreed, and marking it does no harm.
    const auto folder = home / "taken/terms-agreed";
    std::filesystem::create_directories(folder);
    TermsReceipt::markAgreed(folder);
    EXPECT_FALSE(TermsReceipt::isAgreed(folder));
    EXPECT_TRUE(std::filesystem::is_directory(folder));
    // Nor by a file that cannot be made.
    TermsReceipt::markAgreed("/proc/terms-agreed");
    EXPECT_FALSE(TermsReceipt::isAgreed("/proc/terms-agreed"));
}

TEST(JourneyReceipts, RememberWhatWasPluggedInOrNothing) {
    const TemporaryHome home;
    const auto file = JourneyWiringReceipt::path(home / "support");
    EXPECT_THAT(JourneyWiringReceipt::read(file), ElementsAre());
    JourneyWiringReceipt::write({"codex", "claude \"code\""}, file);
    EXPECT_THAT(JourneyWiringReceipt::read(file), ElementsAre("codex", "claude \"code\""));
    const std::string whole = *testing::get(file);
    for (std::size_t cut = 0; cut < whole.size(); ++cut)
        EXPECT_TRUE(JourneyWiringReceipt::read(put(file, whole.substr(0, cut))).empty()) << cut;
    for (const char* other : {"{}", "[1]", R"(["codex", null])", R"({"version": 2, "ids": []})"})
        EXPECT_TRUE(JourneyWiringReceipt::read(put(file, other)).empty()) << other;
    for (const auto& unreadable : {home.path(), std::filesystem::path("/proc/self/mem")})
        EXPECT_TRUE(JourneyWiringReceipt::read(unreadable).empty()) << unreadable;
    put(file, whole);
    {
        const testing::FullDisk full;
        JourneyWiringReceipt::write({"codex", "cursor"}, file);
    }
    EXPECT_EQ(testing::get(file), whole) << "the old list, whole";
    EXPECT_EQ(testing::namesIn(file.parent_path()).size(), 1U) << "a piece of the new one";
}

TEST(JourneyWords, TakeAHintApart) {
    using JourneyWords::Hint;
    EXPECT_EQ(JourneyWords::split("**Why?**\nTick **it** & <go>."),
              (Hint{"Why?", "Tick **it** & <go>."}));
    EXPECT_EQ(JourneyWords::styled("Tick **it** & <go>.\nNow"),
              "Tick <b>it</b> &amp; &lt;go>.<br>Now");
    EXPECT_EQ(JourneyWords::plain("Tick **it**"), "Tick it");
    EXPECT_EQ(JourneyWords::split("plain"), (Hint{"", "plain"}));
    EXPECT_EQ(JourneyWords::split("**open"), (Hint{"open", ""}));
}

TEST(JourneyWords, FindTheWayToThePage) {
    using JourneyWords::linkIn;
    EXPECT_EQ(linkIn("I agree to the terms.", "terms"), "terms");
    EXPECT_EQ(linkIn("Souhlasím s podmínkami.", "podmínky"), "Souhlasím s podmínkami.")
        << "a word that is bent";
    EXPECT_EQ(linkIn("Souhlasím.", ""), "Souhlasím.");
}

} // namespace
} // namespace wendlow
