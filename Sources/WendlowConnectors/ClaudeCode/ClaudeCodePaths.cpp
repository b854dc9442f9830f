#include "ClaudeCode/ClaudeCodePaths.h"

namespace wendlow {

ClaudeCodePaths ClaudeCodePaths::under(const Path& home, const Path& bundle) {
    return {
        .configDirectory = home / ".claude",
        .settingsFile = home / ".claude/settings.json",
        .mcpFile = home / ".claude.json",
        .receiptFile = home / "Library/Application Support/Wendlow/Connectors/claude-code.json",
        .hookBinary = bundle / "Contents/MacOS/wendlow-hook",
        .mcpBinary = bundle / "Contents/MacOS/wendlow-mcp",
    };
}

std::string ClaudeCodePaths::hookCommand() const {
    return hookBinary.string() + " --harness claude-code";
}

std::array<std::string, 3> ClaudeCodePaths::hookCommands() const {
    const std::string command = hookCommand();
    return {command + " --slot rules", command + " --slot index", command + " --slot recall"};
}

std::string ClaudeCodePaths::preToolCommand() const {
    return hookCommand() + " --slot pretool";
}

std::vector<std::string> ClaudeCodePaths::currents() const {
    const auto slots = hookCommands();
    std::vector<std::string> all(slots.begin(), slots.end());
    all.push_back(preToolCommand());
    return all;
}

std::string ClaudeCodePaths::mcpCommand() const {
    return mcpBinary.string();
}

ClaudeCodePaths::Path ClaudeCodePaths::projectsDirectory() const {
    return configDirectory / "projects";
}

ClaudeCodePaths::Path ClaudeCodePaths::globalMemoryFile() const {
    return configDirectory / "CLAUDE.md";
}

ClaudeCodePaths::Path ClaudeCodePaths::memoryDirectory() const {
    return configDirectory / "memory";
}

} // namespace wendlow
