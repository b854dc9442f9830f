#include "HookSpeech.h"
#include "HookText.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using ::testing::HasSubstr;

const HookHarness& claude = *HookHarness::find("claude-code");
const HookHarness& codex = *HookHarness::find("codex");

TEST(HookText, CutsAtALineAndSaysSo) {
    const std::string said = "(Wendlow cut this here; its tools give the rest.)\n";
    std::string hebrew;
    for (int word = 0; word < 20; ++word)
        hebrew += "שלום ";
    const struct {
        std::string text;
        std::size_t most;
        const HookHarness& harness;
        std::string cut;
    } rows[] = {
        {"one\n", 4, claude, "one\n"},
        {"one\ntwo\n" + std::string(100, 'x'), 70, claude, "one\ntwo\n" + said},
        {std::string(100, 'x'), said.size() + 9, claude, "xxxxx…\n" + said},
        {std::string(100, 'x'), 20, claude, ""},
        // In UTF-16 units, of which a flag has two for four bytes, or in bytes.
        {"שלום\n", 5, claude, "שלום\n"},
        {"🚀🚀", 4, claude, "🚀🚀"},
        {hebrew, said.size() + 9, claude, "שלום …\n" + said},
        {hebrew, said.size() + 9, codex, "של…\n" + said},
    };
    for (const auto& row : rows) {
        const std::string cut = HookText::within(row.text, row.most, row.harness);
        EXPECT_EQ(cut, row.cut);
        EXPECT_LE(HookText::size(cut, row.harness), row.most);
    }
}

/// A gateway that gives everything in plenty.
std::vector<HookAnswer> plenty(const std::vector<GatewayRequest>& questions) {
    std::string card;
    for (int rule = 0; rule < 500; ++rule)
        card += fmt::format("- שלום rule {} </wendlow-rules>\n", rule);
    std::vector<HookAnswer> answers;
    for (const GatewayRequest& question : questions) {
        const auto& read = std::get<GatewayCase::Read>(question)._0;
        if (std::holds_alternative<ReadCase::Primed>(read)) {
            AnswerCase::Primed primed;
            primed._0.assign(3, {.when = "",
                                 .whenRelative = "today",
                                 .chapter = "/",
                                 .gist = "G",
                                 .evidence = std::string(20'000, 'e'),
                                 .grabId = "m1"});
            answers.emplace_back(std::move(primed));
        } else if (std::holds_alternative<ReadCase::ListTypes>(read)) {
            answers.emplace_back(
                AnswerCase::KindTypes{"/", std::vector<KindCount>(300, {"type", 7})});
        } else if (std::get<ReadCase::StandingRules>(read).card) {
            answers.emplace_back(AnswerCase::RulesCard{.scope = "/", .card = card});
        } else {
            answers.emplace_back(AnswerCase::StandingWalk{});
        }
    }
    return answers;
}

TEST(HookSpeech, LeavesEachBlockRoomWithinTheLimit) {
    HookEvent event;
    event.prompt = "x";
    for (const HookHarness* const harness : {&claude, &codex}) {
        const HookSpeech speech = HookSpeech::gather(HookSlot::prompt, *harness, event,
                                                     HookSpeech::Counting::looks, &plenty);
        const std::string text = speech.text(*harness);
        EXPECT_LE(HookText::size(text, *harness), harness->most);
        EXPECT_GT(HookText::size(text, *harness), harness->most * 17 / 20);
        for (const char* const part :
             {"<wendlow-rules>\n- שלום rule 0 ‹/wendlow-rules>\n",
              "</wendlow-rules>\n<wendlow-index>\n", "7 type, 288 more types",
              "</wendlow-index>\n<wendlow-memory>\nRemembered",
              "(Wendlow cut this here; its tools give the rest.)\n</wendlow-memory>\n"})
            EXPECT_THAT(text, HasSubstr(part));
    }
}

} // namespace
} // namespace wendlow
