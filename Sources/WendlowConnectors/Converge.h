#pragma once

#include "Connectors.h"

#include <functional>
#include <string>
#include <vector>

namespace wendlow {

/// The run at start-up that repairs wiring of ours, and clears away what is no longer offered.
namespace Converge {

/// What became of one tool.
struct Repair {
    std::string name; ///< for a person
    ConnectorOutcome outcome;

    bool operator==(const Repair&) const = default;
};

/// Whether Claude's desktop app is running; for a host, `ClaudeDesktop::isRunning`.
using IsClaudeRunning = std::function<bool()>;

/// `run` for every connector there is, and then `retire`.
std::vector<Repair> run(const std::filesystem::path& home, const std::filesystem::path& bundle,
                        const std::filesystem::path& applications, Connectors::Profile profile,
                        const IsClaudeRunning& isClaudeRunning);
/// Installs each of `connectors` whose own wiring is stale, in order. Every other is left entirely
/// alone and has no repair. Blocks on the disk.
std::vector<Repair> run(const Connectors::List& connectors);
/// The retirements alone, one repair each. While Claude is running its file is not touched: it
/// would write over it when it quits. Blocks on the disk.
std::vector<Repair> retire(const std::filesystem::path& home, const std::filesystem::path& bundle,
                           Connectors::Profile profile, const IsClaudeRunning& isClaudeRunning);

} // namespace Converge
} // namespace wendlow
