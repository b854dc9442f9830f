#include "ConnectableApp.h"

#include <array>
#include <string_view>
#include <utility>

namespace wendlow {

std::string ConnectableAppIcon::brandAsset(const std::string& id) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 5> byRow = {{
        {"claude-code", "tool-claude"},
        {"claude", "tool-claude"},
        {"codex", "tool-codex"},
        {"cursor", "tool-cursor"},
        {"opencode", "tool-opencode"},
    }};
    for (const auto& [row, asset] : byRow) {
        if (row == id)
            return std::string(asset);
    }
    return {};
}

} // namespace wendlow
