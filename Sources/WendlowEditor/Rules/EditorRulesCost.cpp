#include "Rules/EditorRulesCost.h"

#include "Floor/Characters.h"

#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

namespace {

EditorRulesCost costOf(const EditorRulesCard& card, std::string_view text) {
    return {.rules = std::ssize(card.inlineRules), .tokens = (Characters::count(text) + 3) / 4};
}

} // namespace

EditorRulesCost EditorRulesCost::inlineTier(const EditorRulesCard& card) {
    std::string text;
    std::optional<std::string> heading;
    for (const EditorRuleLine& line : card.inlineRules) {
        std::string own = EditorRulesCard::inlineHeading(line.scope.value_or("/"));
        if (heading != own)
            text.append(own).append("\n");
        heading = std::move(own);
        text.append("- ").append(line.text).append("  ·m:").append(line.id).append("·\n");
    }
    return costOf(card, text);
}

EditorRulesCost EditorRulesCost::wholeCard(const EditorRulesCard& card) {
    return costOf(card, card.raw);
}

} // namespace wendlow
