#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace wendlow {

/// Every place that the Cursor connector looks at or writes, and the commands it writes there.
struct CursorPaths {
    using Path = std::filesystem::path;

    static constexpr std::int64_t hookTimeoutSeconds = 3;

    Path configDirectory;
    Path hooksFile;
    Path mcpFile;
    Path receiptFile;
    Path workspaceStorageDirectory; ///< one folder for each workspace
    Path claudeSettingsFile;        ///< Cursor runs hooks that it finds there, too
    Path cursorApp;
    Path hookBinary;
    Path mcpBinary;

    /// All three are absolute. `applications` is the folder that Cursor lies in.
    static CursorPaths under(const Path& home, const Path& bundle, const Path& applications);
    /// The same with Cursor itself named.
    static CursorPaths withApp(const Path& home, const Path& bundle, const Path& cursorApp);

    std::string hookCommand() const; ///< without a slot, on each prompt
    std::string preToolCommand() const;
    std::string claudeHookCommand() const; ///< what the same program is for Claude Code
    std::string mcpCommand() const;

    Path rulesDirectory() const;

    bool operator==(const CursorPaths&) const = default;
};

} // namespace wendlow
