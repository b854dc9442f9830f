#pragma once

#include "ToolPaths.h"

namespace wendlow {

/// Every place that the Cursor connector looks at or writes.
struct CursorPaths : ToolPaths {
    Path workspaceStorageDirectory; ///< one folder for each workspace
    ToolPaths claude;               ///< Cursor runs hooks that it finds there, too
    Path cursorApp;

    /// `applications` is the folder that Cursor lies in.
    static CursorPaths under(const Path& home, const Path& bundle, const Path& applications);

    Path rulesDirectory() const;

    bool operator==(const CursorPaths&) const = default;
};

} // namespace wendlow
