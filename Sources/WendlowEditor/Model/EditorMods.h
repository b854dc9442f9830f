#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

struct EditorModBehavior {
    std::string name;
    std::string trigger = {};
    bool wake = false;
    std::optional<std::vector<std::string>> tools = {};
    std::optional<std::int64_t> maxMutations = {};
    std::optional<std::string> laneState = {};

    bool operator==(const EditorModBehavior&) const = default;
};

struct EditorInstalledMod {
    std::string slug;
    std::string scope = {};
    std::int64_t rev = 0;
    std::string hint = {};
    std::vector<std::string> files = {};
    std::vector<EditorModBehavior> behaviors = {};

    bool operator==(const EditorInstalledMod&) const = default;
};

/// The mods that are there. What was refused and what has run come with the face that shows it.
struct EditorModsBoard {
    std::vector<EditorInstalledMod> mods = {};

    bool operator==(const EditorModsBoard&) const = default;
};

} // namespace wendlow
