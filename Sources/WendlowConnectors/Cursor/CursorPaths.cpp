#include "Cursor/CursorPaths.h"

namespace wendlow {

CursorPaths CursorPaths::under(const Path& home, const Path& bundle, const Path& applications) {
    return withApp(home, bundle, applications / "Cursor.app");
}

CursorPaths CursorPaths::withApp(const Path& home, const Path& bundle, const Path& cursorApp) {
    return {
        .configDirectory = home / ".cursor",
        .hooksFile = home / ".cursor/hooks.json",
        .mcpFile = home / ".cursor/mcp.json",
        .receiptFile = home / "Library/Application Support/Wendlow/Connectors/cursor.json",
        .workspaceStorageDirectory =
            home / "Library/Application Support/Cursor/User/workspaceStorage",
        .claudeSettingsFile = home / ".claude/settings.json",
        .cursorApp = cursorApp,
        .hookBinary = bundle / "Contents/MacOS/wendlow-hook",
        .mcpBinary = bundle / "Contents/MacOS/wendlow-mcp",
    };
}

std::string CursorPaths::hookCommand() const {
    return hookBinary.string() + " --harness cursor";
}

std::string CursorPaths::preToolCommand() const {
    return hookCommand() + " --slot pretool";
}

std::string CursorPaths::claudeHookCommand() const {
    return hookBinary.string() + " --harness claude-code";
}

std::string CursorPaths::mcpCommand() const {
    return mcpBinary.string();
}

CursorPaths::Path CursorPaths::rulesDirectory() const {
    return configDirectory / "rules";
}

} // namespace wendlow
