#include "Codex/CodexPaths.h"

namespace wendlow {

CodexPaths CodexPaths::under(const Path& home, const Path& bundle) {
    return {
        .configDirectory = home / ".codex",
        .hooksFile = home / ".codex/hooks.json",
        .configFile = home / ".codex/config.toml",
        .receiptFile = home / "Library/Application Support/Wendlow/Connectors/codex.json",
        .homeAgentsFile = home / "AGENTS.md",
        .hookBinary = bundle / "Contents/MacOS/wendlow-hook",
        .mcpBinary = bundle / "Contents/MacOS/wendlow-mcp",
    };
}

std::string CodexPaths::hookCommand() const {
    return hookBinary.string() + " --harness codex";
}

std::string CodexPaths::mcpCommand() const {
    return mcpBinary.string();
}

CodexPaths::Path CodexPaths::sessionsDirectory() const {
    return configDirectory / "sessions";
}

CodexPaths::Path CodexPaths::globalMemoryFile() const {
    return configDirectory / "AGENTS.md";
}

} // namespace wendlow
