#pragma once

#include "ToolPaths.h"

namespace wendlow {

/// Every place that the Codex connector looks at or writes.
struct CodexPaths : ToolPaths {
    Path homeAgentsFile;

    static CodexPaths under(const Path& home, const Path& bundle);

    Path sessionsDirectory() const; ///< dated folders of session files
    Path globalMemoryFile() const;

    bool operator==(const CodexPaths&) const = default;
};

} // namespace wendlow
