#pragma once

#include "ToolPaths.h"

#include <array>
#include <vector>

namespace wendlow {

/// Every place that the Claude Code connector looks at or writes.
struct ClaudeCodePaths : ToolPaths {
    static ClaudeCodePaths under(const Path& home, const Path& bundle);

    std::array<std::string, 3> hookCommands() const; ///< rules, index, recall
    std::vector<std::string> currents() const;       ///< all four, in the order of writing

    /// What Claude Code reads in the place of `serversFile` where it is there.
    Path otherUserFile() const;
    /// The file with the servers: `serversFile`, unless there is one that Claude Code reads in its
    /// place. Asks the disk.
    Path userFile() const;

    Path projectsDirectory() const; ///< one folder for each project, named after its path
    Path globalMemoryFile() const;
    Path memoryDirectory() const;

    bool operator==(const ClaudeCodePaths&) const = default;
};

} // namespace wendlow
