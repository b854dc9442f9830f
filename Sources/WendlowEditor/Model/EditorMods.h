#pragma once

#include "Model/EditorDate.h"

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

/// A mod, or one behavior of it, that the daemon did not take.
struct EditorModRejection {
    std::string slug;
    std::string scope = {};
    std::optional<std::string> behavior = {};
    std::string reason = {};

    bool operator==(const EditorModRejection&) const = default;
};

struct EditorModRun {
    std::string mod;
    std::string behavior = {};
    std::string scope = {};
    std::string trigger = {};
    EditorDate startedAt = {};
    EditorDate endedAt = {};
    std::optional<std::int64_t> exit = {};
    std::optional<std::int64_t> turns = {};
    std::string outcome = {}; ///< the daemon's own word
    std::optional<std::string> outputPath = {};
    std::optional<std::string> report = {};
    std::optional<std::int64_t> mutations = {};

    bool operator==(const EditorModRun&) const = default;
};

/// All in the daemon's order.
struct EditorModsBoard {
    std::vector<EditorInstalledMod> mods = {};
    std::vector<EditorModRejection> rejected = {};
    std::vector<EditorModRun> runs = {};

    bool operator==(const EditorModsBoard&) const = default;

    bool isEmpty() const { return mods.empty() && rejected.empty() && runs.empty(); }
};

} // namespace wendlow
