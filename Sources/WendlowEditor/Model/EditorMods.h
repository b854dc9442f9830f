#pragma once

#include "Model/EditorDate.h"
#include "Model/EditorRunOutcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

struct EditorModBehavior {
    std::string name;
    std::string trigger = {};
    bool wake = false;
    std::optional<std::vector<std::string>> tools = std::nullopt;
    std::optional<std::int64_t> maxMutations = std::nullopt;
    std::optional<std::string> laneState = std::nullopt;

    bool operator==(const EditorModBehavior&) const = default;

    /// What it may do, in words.
    std::string powers() const;
};

struct EditorInstalledMod {
    std::string slug;
    std::string scope = {};
    std::int64_t rev = 0;
    std::string hint = {};
    std::vector<std::string> files = {};
    std::vector<EditorModBehavior> behaviors = {};

    bool operator==(const EditorInstalledMod&) const = default;

    /// Each file with the mod's revision.
    std::vector<std::pair<std::string, std::int64_t>> filesWithRevs() const;
};

/// A mod, or one behavior of it, that the daemon did not take.
struct EditorModRejection {
    std::string slug;
    std::string scope = {};
    std::optional<std::string> behavior = std::nullopt;
    std::string reason = {};

    bool operator==(const EditorModRejection&) const = default;

    /// What was not taken.
    std::string label() const;
    std::string id() const;
};

struct EditorModRun {
    std::string mod;
    std::string behavior = {};
    std::string scope = {};
    std::string trigger = {};
    EditorDate startedAt = {};
    EditorDate endedAt = {};
    std::optional<std::int64_t> exit = std::nullopt;
    std::optional<std::int64_t> turns = std::nullopt;
    EditorRunOutcome outcome = {};
    std::optional<std::string> outputPath = std::nullopt;
    std::optional<std::string> report = std::nullopt;
    std::optional<std::int64_t> mutations = std::nullopt;

    bool operator==(const EditorModRun&) const = default;

    /// What ran.
    std::string lane() const;
    /// How long it took, to the nearest second.
    std::int64_t seconds() const;
    bool hasReport() const;
    /// The daemon has cut the report, and said so at its end.
    bool isReportTruncated() const;
};

/// All in the daemon's order.
struct EditorModsBoard {
    std::vector<EditorInstalledMod> mods = {};
    std::vector<EditorModRejection> rejected = {};
    std::vector<EditorModRun> runs = {};

    bool operator==(const EditorModsBoard&) const = default;

    bool isEmpty() const { return mods.empty() && rejected.empty() && runs.empty(); }
    /// Of this mod, wherever it is installed.
    std::vector<EditorModRun> runsOf(std::string_view slug) const;
    /// Of mods that are installed no more.
    std::vector<EditorModRun> orphanRuns() const;
};

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
