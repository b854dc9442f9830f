#include "OpenCode/OpenCodePaths.h"

namespace wendlow {

OpenCodePaths OpenCodePaths::under(const Path& home, const Path& bundle) {
    return {
        .configDirectory = home / ".config/opencode",
        .configFile = home / ".config/opencode/opencode.jsonc",
        .pluginsDirectory = home / ".config/opencode/plugins",
        .pluginFile = home / ".config/opencode/plugins/wendlow.js",
        .receiptFile = home / "Library/Application Support/Wendlow/Connectors/opencode.json",
        .homeAgentsFile = home / "AGENTS.md",
        .dataDirectory = home / ".local/share/opencode",
        .hookBinary = bundle / "Contents/MacOS/wendlow-hook",
        .mcpBinary = bundle / "Contents/MacOS/wendlow-mcp",
    };
}

std::string OpenCodePaths::hookCommand() const {
    return hookBinary.string() + " --harness opencode";
}

std::string OpenCodePaths::mcpCommand() const {
    return mcpBinary.string();
}

OpenCodePaths::Path OpenCodePaths::sessionDatabase() const {
    return dataDirectory / "opencode.db";
}

OpenCodePaths::Path OpenCodePaths::configAgentsFile() const {
    return configDirectory / "AGENTS.md";
}

} // namespace wendlow
