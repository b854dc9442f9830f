#pragma once

#include "ClaudeCode/ClaudeCodePaths.h"
#include "MCPServerEntry.h"

namespace wendlow {

/// The server in Claude Code's user file.
class ClaudeCodeMCP : public MCPServerEntry {
public:
    explicit ClaudeCodeMCP(const ClaudeCodePaths& paths)
        : MCPServerEntry(paths.mcpBinary, Created::mcpServersObject) {}
};

} // namespace wendlow
