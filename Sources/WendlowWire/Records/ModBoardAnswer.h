#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

struct ModBehaviorEntry {
    std::string name;
    std::string trigger;
    bool wake = false;
    std::optional<std::vector<std::string>> tools = std::nullopt;
    std::optional<std::int64_t> maxMutations = std::nullopt;
    std::optional<std::string> laneState = std::nullopt;
    WENDLOW_RECORD(ModBehaviorEntry, name, trigger, wake, tools, maxMutations, laneState);
};

struct ModBoardEntry {
    std::string slug;
    std::string scope;
    std::int64_t rev = 0;
    std::string hint;
    std::vector<std::string> files;
    std::vector<ModBehaviorEntry> behaviors;
    WENDLOW_RECORD(ModBoardEntry, slug, scope, rev, hint, files, behaviors);
};

/// A mod, or one behaviour of it, that the daemon did not take, and why.
struct ModRejectionEntry {
    std::string slug;
    std::string scope;
    std::optional<std::string> behavior = std::nullopt;
    std::string reason;
    WENDLOW_RECORD(ModRejectionEntry, slug, scope, behavior, reason);
};

struct ModRunEntry {
    std::string mod;
    std::string behavior;
    std::string scope;
    std::string trigger;
    double startedAt = 0; ///< seconds since 1970
    double endedAt = 0;   ///< seconds since 1970
    std::optional<std::int64_t> exit = std::nullopt;
    std::optional<std::int64_t> turns = std::nullopt;
    std::string outcome;
    std::optional<std::string> outputPath = std::nullopt;
    std::optional<std::string> report = std::nullopt;
    std::optional<std::int64_t> mutations = std::nullopt;
    WENDLOW_RECORD(ModRunEntry, mod, behavior, scope, trigger, startedAt, endedAt, exit, turns,
                   outcome, outputPath, report, mutations);
};

struct ModBoardAnswer {
    std::vector<ModBoardEntry> mods;
    std::vector<ModRejectionEntry> rejected;
    std::vector<ModRunEntry> runs;
    WENDLOW_RECORD(ModBoardAnswer, mods, rejected, runs);
};

} // namespace wendlow
