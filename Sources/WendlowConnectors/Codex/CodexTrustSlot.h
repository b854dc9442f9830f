#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

/// The position of a hook, as Codex names the table that holds its trust. Pure; any thread.
struct CodexTrustSlot {
    /// Codex's own spelling of the event that the hooks file calls "UserPromptSubmit".
    static constexpr std::string_view promptEvent = "user_prompt_submit";

    std::string key; ///< hooks path, event, group and index, joined by ":"
    std::string hooksPath;
    std::string event;
    std::ptrdiff_t group = 0;
    std::ptrdiff_t index = 0;

    /// The slot of a hook on a prompt.
    static CodexTrustSlot at(const std::string& hooksPath, std::ptrdiff_t group,
                             std::ptrdiff_t index);
    /// Nothing for a key that names no position. The path may hold colons of its own.
    static std::optional<CodexTrustSlot> parse(std::string_view key);

    bool operator==(const CodexTrustSlot&) const = default;
};

} // namespace wendlow
