#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace wendlow {

/// Where a new rule goes: into a rules file of this name, or nowhere, and then it rides every
/// prompt.
struct EditorRulePlacement {
    std::optional<std::string> file = std::nullopt;

    bool operator==(const EditorRulePlacement&) const = default;

    std::string label() const;
    bool isLegal() const;
    /// The filters that file a rule there.
    std::map<std::string, std::string> filters() const;
};

namespace EditorRulesFiles {
/// Names that mean something else in a card.
inline constexpr std::array<std::string_view, 6> reserved{
    "rules", "mods", "user-rules", "wendlow-memory", "wendlow-rules", "wendlow-shortcut"};
/// `text` as the name of a rules file: trimmed and in lower case. Nothing: it cannot be one.
std::optional<std::string> normalizedName(std::string_view text);
/// What is wrong with a name that cannot be one.
std::string refusal(std::string_view name);
} // namespace EditorRulesFiles

/// What became of a write.
struct EditorWriteOutcome {
    enum class Result { wrote, refused };
    Result result = Result::wrote;
    std::string words;

    static EditorWriteOutcome wrote(std::string words) {
        return {.result = Result::wrote, .words = std::move(words)};
    }
    static EditorWriteOutcome refused(std::string words) {
        return {.result = Result::refused, .words = std::move(words)};
    }
    bool ok() const { return result == Result::wrote; }
    bool operator==(const EditorWriteOutcome&) const = default;
};

} // namespace wendlow
