#pragma once

#include "ConnectorTypes.h"

#include <filesystem>
#include <vector>

namespace wendlow {

/// One AI tool that a person can wire up. No operation fails as a function: every failure is words
/// in a report or an outcome. All block on the disk and run on the caller's thread; a caller never
/// runs two verbs of one connector at once.
class Connector {
public:
    virtual ~Connector() = default;

    virtual ConnectorIdentity identity() const = 0;
    /// The tool's files that a verb may change or make, as configured. It makes copies beside them,
    /// and may make the folder of one. No disk is asked.
    virtual std::vector<std::filesystem::path> files() const { return {}; }
    /// Looks, and changes nothing.
    virtual ScanReport scan() const = 0;
    virtual ProjectReport projects() const = 0;
    virtual MemoryFileReport memoryFiles() const = 0;
    virtual ConnectorOutcome install() const = 0;
    virtual ConnectorOutcome remove() const = 0;
    /// True when the tool holds wiring of ours that this build would write differently and
    /// `install` would repair.
    virtual bool staleOwnWiring() const = 0;
};

} // namespace wendlow
