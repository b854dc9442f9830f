#pragma once

#include "ToolPaths.h"

namespace wendlow {

/// Every place that the OpenCode connector looks at or writes. What calls our hook is a plugin.
struct OpenCodePaths : ToolPaths {
    Path pluginsDirectory;
    Path homeAgentsFile;
    Path dataDirectory;

    static OpenCodePaths under(const Path& home, const Path& bundle);

    Path otherServersFile() const; ///< read as well, and never written
    Path sessionDatabase() const;
    Path configAgentsFile() const;

    bool operator==(const OpenCodePaths&) const = default;
};

} // namespace wendlow
