#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace wendlow {

/// Every place that the Codex connector looks at or writes, and the commands it writes there.
struct CodexPaths {
    using Path = std::filesystem::path;

    static constexpr std::int64_t hookTimeoutSeconds = 3;

    Path configDirectory;
    Path hooksFile;
    Path configFile;
    Path receiptFile;
    Path homeAgentsFile;
    Path hookBinary;
    Path mcpBinary;

    /// `home` and `bundle` are absolute.
    static CodexPaths under(const Path& home, const Path& bundle);

    std::string hookCommand() const;
    std::string mcpCommand() const;

    Path sessionsDirectory() const; ///< dated folders of session files
    Path globalMemoryFile() const;

    bool operator==(const CodexPaths&) const = default;
};

} // namespace wendlow
