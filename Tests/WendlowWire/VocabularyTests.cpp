#include "DiagnosticSource.h"
#include "GatewayResponse.h"
#include "IconTrail.h"
#include "LinkStages.h"
#include "LocalModel.h"
#include "ModelsFolder.h"
#include "PlainText.h"
#include "RawString.h"
#include "Rule.h"
#include "ScopePath.h"
#include "SelfNames.h"
#include "WireCodec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

TEST(RawString, IsReadToTheLetter) {
    EXPECT_THAT(allCases<RuleTier>(), ElementsAre(RuleTier::usageOnly, RuleTier::never));
    EXPECT_EQ(rawString(RuleTier::usageOnly), "usageOnly");
    EXPECT_EQ(fromRawString<RuleKind>("topic"), RuleKind::topic);
    for (const char* raw : {"Topic", "topic ", ""})
        EXPECT_EQ(fromRawString<RuleKind>(raw), std::nullopt) << raw;
}

TEST(Rule, OfAKindThatIsNotKnownYetIsARuleStill) {
    const std::string json =
        R"({"rules":{"_0":[{"id":"r1","kind":"colour","value":"mauve","tier":"hushed",)"
        R"("origin":"user","enabled":true}]}})";
    const auto read = WireCodec::decodeResponse(json);
    ASSERT_TRUE(read);
    const Rule rule = std::get<AnswerCase::Rules>(*read)._0.at(0);
    EXPECT_EQ(rule.kind.known(), std::nullopt);
    EXPECT_EQ(rule.tier.word(), "hushed");
    EXPECT_NE(rule.tier, RuleTier::usageOnly);
    EXPECT_EQ(WireCodec::encode(*read), json);
}

TEST(DiagnosticSource, IsReadWhateverItsCaseAndBlanks) {
    EXPECT_EQ(DiagnosticSources::read(" Settings\n"), DiagnosticSource::settings);
    EXPECT_EQ(DiagnosticSources::read("\u00a0CTL\u2029"), DiagnosticSource::ctl);
    EXPECT_EQ(DiagnosticSources::read("set tings"), std::nullopt);
    EXPECT_EQ(DiagnosticSources::category("\tMenu"), "menu");
    EXPECT_EQ(DiagnosticSources::category("cron"), "client");
}

TEST(IconTrail, AlertGoesBeforeRecording) {
    using IconTrails::decide;
    EXPECT_EQ(decide(true, FrontRecording::full), IconTrail::alert);
    EXPECT_EQ(decide(false, FrontRecording::full), IconTrail::solid);
    EXPECT_EQ(decide(false, FrontRecording::titleOnly), IconTrail::hollow);
}

TEST(ScopePath, HoldsWholeSegmentsOnly) {
    using ScopePath::inScope;
    using ScopePath::matches;
    const std::tuple<std::string_view, std::optional<std::string_view>, bool> rows[] = {
        {"/a", "/a", true},       {"/a/b", "/", true},   {"/a/b/c", "/a/b", true},
        {"/a/bc", "/a/b", false}, {"/a", "/a/b", false}, {"/x", std::nullopt, true},
        {"", "/", true},
    };
    for (const auto& [path, prefix, isIn] : rows)
        EXPECT_EQ(inScope(path, prefix), isIn) << path << " in " << prefix.value_or("none");
    using Scopes = std::vector<std::string>;
    EXPECT_TRUE(matches("/x", Scopes{}));
    EXPECT_TRUE(matches("/b/c", Scopes{"/a", "/b"}));
    EXPECT_FALSE(matches("/bc", Scopes{"/a", "/b"}));
}

TEST(SelfNames, AreTidiedWithoutRegardToCase) {
    using Names = std::vector<std::string>;
    const std::pair<Names, Names> rows[] = {
        {{"Ann, ann", "  Bob"}, {"Ann", "Bob"}},
        {{"", " , ,", "\n"}, {}},
        {{"B", "A", "b", "a b ,A B"}, {"B", "A", "a b"}},
        {{"Ärzte,ÄRZTE,ärzte", "ИВАН,Иван"}, {"Ärzte", "ИВАН"}},
        {{"\u3000Ann\u00a0"}, {"Ann"}},
        {{"\xff,\xff,\xfe"}, {"\xff", "\xfe"}},
    };
    for (const auto& [names, tidied] : rows)
        EXPECT_EQ(SelfNames::tidy(names), tidied) << ::testing::PrintToString(names);
}

TEST(PlainText, LeavesAloneWhatIsNoLetter) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"aZ09[", "az09["},         {"ÉẞΩ", "éßω"}, {"日本😀", "日本😀"}, {"A\xc3(", "a\xc3("},
        {"X\xf0\x9f", "x\xf0\x9f"},
    };
    for (const auto& [text, lower] : rows)
        EXPECT_EQ(PlainText::lowerCased(text), lower);
}

TEST(LinkStages, PartsNeverExceedTheTotal) {
    const std::pair<LinkStages, std::string_view> rows[] = {
        {{.queued = 3ms, .wire = 40ms, .daemon = 30ms, .render = 5ms, .total = 50ms},
         "slow link v: total=50ms queued=3ms ipc=10ms daemon=30ms render=5ms residual=2ms"},
        {{.queued = 3ms, .wire = 40ms, .total = 50ms},
         "slow link v: total=50ms queued=3ms ipc=40ms residual=7ms"},
        {{.queued = 90ms, .wire = 40ms, .daemon = 9ms, .render = 5ms, .total = 50ms},
         "slow link v: total=50ms queued=50ms ipc=0ms daemon=0ms render=0ms residual=0ms"},
        {{.queued = 10ms, .wire = 40ms, .daemon = 99ms, .render = 25ms, .total = 50ms},
         "slow link v: total=50ms queued=10ms ipc=0ms daemon=15ms render=25ms residual=0ms"},
        {{.queued = -5ms, .wire = 1999us, .daemon = -1ms, .total = 2999us},
         "slow link v: total=2ms queued=0ms ipc=1ms daemon=0ms residual=1ms"},
    };
    for (const auto& [stages, line] : rows)
        EXPECT_EQ(stages.line("v"), line);
}

TEST(LocalModel, CountsATaggedCopy) {
    const std::pair<std::string, bool> rows[] = {
        {"fenmoor/gemma3-4b-text", true},
        {"fenmoor/gemma3-4b-text:latest", true},
        {"fenmoor/gemma3-4b-text2", false},
        {"gemma3-4b-text", false},
    };
    for (const auto& [name, isReady] : rows) {
        EXPECT_EQ(LocalModel::ready(std::vector{std::string("other"), name}), isReady) << name;
        EXPECT_EQ(LocalModel::readyInTags(R"({"models":[7,{"size":1},{"name":")" + name + "\"}]}"),
                  isReady);
    }
    EXPECT_FALSE(LocalModel::ready({}));
    for (const char* body : {"", "[]", "{}", R"({"models":{"name":"fenmoor/gemma3-4b-text"}})",
                             R"({"models":[{"name":"fenmoor/gemma3-4b-text"}])"})
        EXPECT_FALSE(LocalModel::readyInTags(body)) << body;
}

TEST(ModelsFolder, LiesInTheProductsSupportFolder) {
    EXPECT_EQ(ModelsFolder::namingBinary("/s"), "/s/Wendlow/models/naming/runtime/ollama");
    EXPECT_EQ(ModelsFolder::namingStore("/s"), "/s/Wendlow/models/naming/store");
    EXPECT_EQ(ModelsFolder::speech("/s"), "/s/Wendlow/models/speech");
    EXPECT_EQ(ModelsFolder::voices("/s"), "/s/Wendlow/models/voices");
}

} // namespace
} // namespace wendlow
