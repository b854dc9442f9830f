#include "Support/LiveDaemon.h"

namespace wendlow {
namespace {

using testing::failure;
using ::testing::HasSubstr;
using testing::LiveDaemon;
using testing::LiveStore;
using testing::page;

GatewayResponse card(std::string scope) {
    return AnswerCase::RulesCard{.scope = std::move(scope),
                                 .card = "/work/a rules:\n- Ask  ·m:7·\n<rules root=\"~/r\">\n"};
}

GatewayResponse walk(std::string path) {
    return AnswerCase::StandingWalk{
        RulesWalk{.path = std::move(path), .levels = {{"/work/a", {"Ask"}}}, .overflow = 2}};
}

/// The store with a scope "/work/a", asked for the rules there and answered so.
EditorRulesPicture picture(const GatewayResponse& ofCard, const GatewayResponse& ofWalk) {
    LiveDaemon live;
    live.open();
    std::optional<EditorRulesPicture> result;
    const auto kept = live.keep(live.store->rules().rulesPicture("/work/a"), result);
    live.answer(R"({"standingRules":{"card":true,"scope":"/work/a"}})", ofCard);
    live.answer(R"({"standingRules":{"card":false,"scope":"/work/a"}})", ofWalk);
    auto filed = page(1);
    filed._0.rows = {
        {.id = "m7", .type = "rule", .scope = "/work/a", .title = "Ask", .filters = {}}};
    live.answer(R"("type":"rule","scopes":["/work/a"],"limit":500)", filed);
    return *std::move(result);
}

TEST(LiveRules, tellWhyTheThreeViewsDiffer) {
    const GatewayResponse strange = AnswerCase::Ok(), none = AnswerCase::StandingWalk{};
    struct Case {
        GatewayResponse card, walk;
        bool hasCard, hasStack;
        const char* gap; ///< that its words begin so; empty for none
    };
    const Case cases[] = {
        {card("/work/a"), walk("/work/a"), true, true, ""},
        {card("/"), walk("/work/a"), false, true,
         "Wendlow was asked about /work/a and answered about /, so nothing"},
        {none, none, false, true, "Nothing is compiled at /work/a yet."},
        {failure("no"), failure("never"), false, false, "no"},
        {strange, walk("/b"), false, false, "Wendlow answered the rules card with something"},
        {card("/work/a"), walk("/b"), true, false,
         "Wendlow was asked about /work/a and answered about /b,"},
        {card("/work/a"), failure("gone"), true, false, "gone"},
        {card("/work/a"), strange, true, false, ""},
    };
    for (const auto& [ofCard, ofWalk, hasCard, hasStack, gap] : cases) {
        const EditorRulesPicture made = picture(ofCard, ofWalk);
        SCOPED_TRACE(gap);
        EXPECT_EQ(made.card.has_value(), hasCard);
        EXPECT_EQ(made.stack.has_value(), hasStack);
        EXPECT_EQ(made.gap.has_value(), *gap != '\0');
        EXPECT_THAT(made.gap ? words(*made.gap) : "", ::testing::StartsWith(gap));
        ASSERT_EQ(made.filed.size(), 1U) << "what is filed is shown under every gap";
        EXPECT_EQ(made.filed[0].rules[0].id, "m7");
    }
    const EditorRulesPicture whole = picture(card("/work/a"), walk("/work/a"));
    EXPECT_EQ(whole.stack->overflow, 2);
    EXPECT_EQ(whole.stack->levels[0].rules[0], (EditorRuleLine{"", "Ask", "/work/a"}));
    EXPECT_EQ(whole.card->inlineRules[0], (EditorRuleLine{"7", "Ask", "/work/a"}));
}

TEST_F(LiveStore, askOnlyForWhatIsFiledWhereThereIsNoScope) {
    open();
    const auto made = now(store->rules().rulesPicture("/nowhere"), failure("read only"));
    EXPECT_THAT(client->sent().back(), HasSubstr(R"("scopes":["/nowhere"],"limit":500)"));
    EXPECT_THAT(words(*made.gap),
                HasSubstr("card for /nowhere can’t be asked for: this window’s scope board"));
    EXPECT_EQ(made.filedState, EditorAnswerState(EditorAnswerStateCase::Failed{"read only"}));
}

} // namespace
} // namespace wendlow
