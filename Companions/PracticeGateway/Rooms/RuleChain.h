#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Records/RulesWalk.h"

namespace wendlow {

/// What is answered about rules otherwise than by a daemon of today, so that whoever shows them can
/// be tried.
struct RuleManner {
    bool olderCard = false;  ///< rooted at the scope, and the tag "topic" still names a module
    bool otherScope = false; ///< a card for the root, whatever was asked
    bool noCard = false;     ///< the walk in place of a card
    bool otherPath = false;  ///< a walk for the root, whatever was asked
    bool warning = false;
    bool overflow = false; ///< a walk of two rules at most

    bool operator==(const RuleManner&) const = default;

    /// Reads words with commas: "older-card", "other-scope", "no-card", "other-path", "warning",
    /// "overflow". The unknown word is the error.
    static std::expected<RuleManner, std::string> parse(std::string_view words);
};

/// The rules that hold at a scope, sorted by how they reach a session.
struct RuleChain {
    /// Rides every prompt, verbatim.
    struct Line {
        std::string scope;
        std::string id;
        std::string text; ///< one line
    };
    /// Fetched when its sentence fits the work. A scope's rules of one name.
    struct Module {
        std::string scope;
        std::string name;
        std::string trigger;
        std::int64_t revision = 0; ///< grows with each change of a rule of it
    };

    std::string scope;
    std::vector<Line> lines;     ///< from the root down
    std::vector<Module> modules; ///< from the root down, then by name
    std::int64_t unreadable = 0; ///< rules with a tag that names no module; these reach nobody

    bool deliversNothing() const { return lines.empty() && modules.empty(); }
    /// The card's text.
    std::string card(const RuleManner& manner = {}) const;
    /// The lines by level. Beyond a ceiling the deeper ones are cut and counted.
    RulesWalk walk(const RuleManner& manner = {}) const;

    /// A module's name as it is written into a card; nothing when it cannot stand there.
    static std::optional<std::string> moduleName(std::string_view text);
};

} // namespace wendlow
