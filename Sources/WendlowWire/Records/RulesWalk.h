#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

/// The rules that hold at a place, from the root of the scopes downwards.
struct RulesWalk {
    struct Level {
        std::string path;
        std::vector<std::string> rules;
        WENDLOW_RECORD(Level, path, rules);
    };

    std::string path;
    std::vector<Level> levels;
    std::int64_t overflow = 0;
    std::optional<bool> announce = std::nullopt;
    std::optional<std::string> note = std::nullopt;
    std::optional<std::string> onboarding = std::nullopt;
    WENDLOW_RECORD(RulesWalk, path, levels, overflow, announce, note, onboarding);
};

} // namespace wendlow
