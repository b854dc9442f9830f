#pragma once

#include "Cursor/CursorPaths.h"
#include "MCPServerEntry.h"

namespace wendlow {

/// The server in Cursor's list of servers.
class CursorMCP : public MCPServerEntry {
public:
    explicit CursorMCP(const CursorPaths& paths)
        : MCPServerEntry(paths.mcpBinary, Created::cursorMCPServersObject) {}
};

} // namespace wendlow
