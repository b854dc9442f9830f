#include "Cursor/CursorPaths.h"

#include "ClaudeCode/ClaudeCodePaths.h"
#include "OwnedNames.h"

namespace wendlow {

CursorPaths CursorPaths::under(const Path& home, const Path& bundle, const Path& applications) {
    return {ToolPaths::under(home, bundle, "cursor", ".cursor", ".cursor/hooks.json",
                             ".cursor/mcp.json"),
            OwnedNames::support(home) / "Cursor/User/workspaceStorage",
            ClaudeCodePaths::under(home, bundle), applications / "Cursor.app"};
}

CursorPaths::Path CursorPaths::rulesDirectory() const {
    return configDirectory / "rules";
}

} // namespace wendlow
