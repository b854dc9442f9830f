#include "ClaudeCode/ClaudeCodePaths.h"

#include "ConfigFile/Disk.h"

namespace wendlow {

ClaudeCodePaths ClaudeCodePaths::under(const Path& home, const Path& bundle) {
    return {ToolPaths::under(home, bundle, "claude-code", ".claude", ".claude/settings.json",
                             ".claude.json")};
}

std::array<std::string, 3> ClaudeCodePaths::hookCommands() const {
    const std::string command = hookCommand();
    return {command + " --slot rules", command + " --slot index", command + " --slot recall"};
}

std::vector<std::string> ClaudeCodePaths::currents() const {
    const auto slots = hookCommands();
    std::vector<std::string> all(slots.begin(), slots.end());
    all.push_back(preToolCommand());
    return all;
}

ClaudeCodePaths::Path ClaudeCodePaths::otherUserFile() const {
    return configDirectory / ".config.json";
}

ClaudeCodePaths::Path ClaudeCodePaths::userFile() const {
    Path other = otherUserFile();
    return Disk::exists(other) ? other : serversFile;
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
