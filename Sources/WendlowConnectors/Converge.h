#pragma once

#include "Connectors.h"

#include <string>
#include <vector>

namespace wendlow {

/// The run at start-up that repairs wiring of ours.
namespace Converge {

/// What became of one tool.
struct Repair {
    std::string name; ///< for a person
    ConnectorOutcome outcome;

    bool operator==(const Repair&) const = default;
};

/// Installs each of `connectors` whose own wiring is stale, in order. Every other is left entirely
/// alone and has no repair. Blocks on the disk.
std::vector<Repair> run(const Connectors::List& connectors);
/// The same for every connector there is.
std::vector<Repair> run(const std::filesystem::path& home, const std::filesystem::path& bundle,
                        const std::filesystem::path& applications);

} // namespace Converge
} // namespace wendlow
