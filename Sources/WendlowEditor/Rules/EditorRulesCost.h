#pragma once

#include "Model/EditorRulesCard.h"

#include <cstdint>

namespace wendlow {

/// What rules cost whoever reads them, estimated as the daemon's compiler does: four characters a
/// token.
struct EditorRulesCost {
    std::int64_t rules = 0;
    std::int64_t tokens = 0;

    bool operator==(const EditorRulesCost&) const = default;

    /// Of the rules that ride every prompt, with their headings.
    static EditorRulesCost inlineTier(const EditorRulesCard& card);
    static EditorRulesCost wholeCard(const EditorRulesCard& card);
};

} // namespace wendlow
