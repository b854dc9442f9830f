#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace wendlow {

/// Every place that the Claude Code connector looks at or writes, and the commands it writes there.
struct ClaudeCodePaths {
    using Path = std::filesystem::path;

    static constexpr std::int64_t hookTimeoutSeconds = 3;

    Path configDirectory;
    Path settingsFile;
    Path mcpFile;
    Path receiptFile;
    Path hookBinary;
    Path mcpBinary;

    /// `home` and `bundle` are absolute.
    static ClaudeCodePaths under(const Path& home, const Path& bundle);

    std::string hookCommand() const;                 ///< without a slot
    std::array<std::string, 3> hookCommands() const; ///< rules, index, recall
    std::string preToolCommand() const;
    std::vector<std::string> currents() const; ///< all four, in the order of writing
    std::string mcpCommand() const;

    Path projectsDirectory() const; ///< one folder for each project, named after its path
    Path globalMemoryFile() const;
    Path memoryDirectory() const;

    bool operator==(const ClaudeCodePaths&) const = default;
};

} // namespace wendlow
