#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// A rule as it is shown, one line.
struct EditorRuleLine {
    std::string id; ///< of its memory; empty where the source does not give it
    std::string text;
    std::optional<std::string> scope = std::nullopt; ///< where it is filed

    bool operator==(const EditorRuleLine&) const = default;
};

/// A rules module on a card. Scope and name together are its identity.
struct EditorRulesFileEntry {
    std::string scope;
    std::string name;
    std::string trigger; ///< the sentence that makes a tool read it
    std::string file;    ///< its path
    std::int64_t rev = 0;
    std::optional<std::int64_t> ruleCount = std::nullopt; ///< nothing: not known

    bool operator==(const EditorRulesFileEntry&) const = default;
};

/// The card that the daemon compiles of a scope's rules: what is delivered. A text of lines,
///
///     ⚠ Wendlow — a warning
///     Global rules:
///     - A rule of the root  ·m:12·
///     /work rules:
///     - A rule of a scope  ·m:13·
///     <rules root="~/.wendlow/rules">
///     <style trigger="Read before drawing." file="work/style.md" rev="4"/>
///     </rules>
///
/// of which whatever is not known is skipped.
struct EditorRulesCard {
    std::string scope;                            ///< what was asked for
    std::string root = {};                        ///< empty where the card has none
    std::vector<EditorRuleLine> inlineRules = {}; ///< these ride every prompt
    std::vector<EditorRulesFileEntry> files = {};
    std::optional<std::string> warning = std::nullopt;
    std::string raw = {}; ///< the card as it came

    bool operator==(const EditorRulesCard&) const = default;

    static EditorRulesCard parse(std::string scope, std::string card);

    /// An older daemon roots its card at the scope; a newer one at the store, and there the paths
    /// of the files carry the scope.
    bool isNewShape() const;

    /// What stands above the rules of a scope.
    static std::string inlineHeading(std::string_view scope);
    /// The scope of a line that is such a heading; nothing for any other line.
    static std::optional<std::string_view> headingScope(std::string_view line);
    /// A line that begins with "- ".
    static std::optional<EditorRuleLine> ruleLine(std::string_view line, std::string_view scope);
    static std::optional<std::string> attribute(std::string_view name, std::string_view line);
    static std::optional<std::string_view> tagName(std::string_view line);
    /// The scope of the folder in which a file lies.
    static std::string fileScope(std::string_view path);

private:
    void takeTag(std::string_view line);
};

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
