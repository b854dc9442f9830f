#include "Model/EditorTranscriptTool.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wendlow {

namespace {

using Known = std::pair<std::string_view, std::string_view>;
constexpr std::array known{Known{"claude", "Claude Code"},     Known{"claude-code", "Claude Code"},
                           Known{"claudecode", "Claude Code"}, Known{"codex", "Codex"},
                           Known{"cursor", "Cursor"},          Known{"opencode", "opencode"},
                           Known{"copilot", "Copilot"},        Known{"github-copilot", "Copilot"}};

constexpr char lowered(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

} // namespace

std::string EditorTranscriptTool::name(std::string_view raw) {
    std::string lower(raw);
    std::ranges::transform(lower, lower.begin(), lowered);
    const auto found = std::ranges::find(known, lower, &Known::first);
    if (found != known.end())
        return std::string(found->second);
    std::string same(raw);
    if (!same.empty() && same.front() >= 'a' && same.front() <= 'z')
        same.front() = static_cast<char>(same.front() - 'a' + 'A');
    return same;
}

} // namespace wendlow
