#pragma once

#include "Model/EditorAnswer.h"
#include "Model/EditorRules.h"
#include "Model/EditorRulesCard.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// What a session at a path receives, level by level from the root down.
struct EditorRulesStack {
    struct Level {
        std::string path;
        std::vector<EditorRuleLine> rules;

        bool operator==(const Level&) const = default;
    };

    std::string path;
    std::vector<Level> levels = {};
    std::int64_t overflow = 0; ///< rules that the daemon has cut

    bool operator==(const EditorRulesStack&) const = default;
};

namespace EditorRulesGapCase {
/// The scope is not on the board.
struct UnaddressableScope {
    std::string scope;
    bool operator==(const UnaddressableScope&) const = default;
};
struct ScopeMismatch {
    std::string asked;
    std::string served;
    bool operator==(const ScopeMismatch&) const = default;
};
struct NothingCompiled {
    std::string scope;
    bool operator==(const NothingCompiled&) const = default;
};
struct Failed {
    std::string words;
    bool operator==(const Failed&) const = default;
};
} // namespace EditorRulesGapCase

/// Why the card cannot be shown, or not as what is true.
using EditorRulesGap =
    std::variant<EditorRulesGapCase::UnaddressableScope, EditorRulesGapCase::ScopeMismatch,
                 EditorRulesGapCase::NothingCompiled, EditorRulesGapCase::Failed>;
std::string words(const EditorRulesGap& gap);

/// How a filed rule is delivered, in the order in which it is shown.
enum class EditorRuleTier {
    everyPrompt,
    undelivered, ///< it reaches nobody
    legacy,      ///< by a tag of an older daemon
    file,        ///< in a rules module
};

struct EditorRuleGrouping {
    std::string name;
    EditorRuleTier tier = EditorRuleTier::everyPrompt;

    bool operator==(const EditorRuleGrouping&) const = default;
};

/// Rules that are delivered alike. Name and tier together are its identity.
struct EditorRuleFileGroup {
    std::string name;
    EditorRuleTier tier = EditorRuleTier::everyPrompt;
    std::vector<EditorRuleLine> rules = {};

    bool operator==(const EditorRuleFileGroup&) const = default;
};

namespace EditorRulesFiles {
/// Whether the tag "topic" still delivers a rule.
enum class Topics { deliver, areDark };
/// How a rule with these filters is delivered.
EditorRuleGrouping placement(const std::map<std::string, std::string>& filters, Topics topics);
/// By tier, then by name.
std::vector<EditorRuleFileGroup> ordered(std::vector<EditorRuleFileGroup> groups);
} // namespace EditorRulesFiles

/// The three views of the rules at a scope, which may disagree: what is delivered, what a session
/// receives, and what is filed, which is the truth.
struct EditorRulesPicture {
    static constexpr std::int64_t mostFiled = 500; ///< that a picture sees

    std::optional<EditorRulesCard> card = std::nullopt;
    std::optional<EditorRulesStack> stack = std::nullopt;
    std::vector<EditorRuleFileGroup> filed = {};
    std::optional<EditorRulesGap> gap = std::nullopt;
    /// Of the question for what is filed: only where it is settled do no groups mean no rules.
    EditorAnswerState filedState = EditorAnswerStateCase::Pending{};
    std::int64_t filedTotal = 0; ///< also those that the picture does not see

    bool operator==(const EditorRulesPicture&) const = default;

    /// Asks for what is filed at a scope.
    static EditorAsk filedAsk(const std::string& scope);
    /// Takes over the answer to that. Behind the card, by which it is judged.
    void takeFiled(const EditorAnswer& answer);
};

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
