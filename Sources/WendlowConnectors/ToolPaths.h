#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace wendlow {

/// The places that a connector of every tool has, and the commands that it writes there. What else
/// one tool has, its own record adds.
struct ToolPaths {
    using Path = std::filesystem::path;

    static constexpr std::int64_t hookTimeoutSeconds = 3;

    std::string tool;     ///< its id, which also names the harness and the receipt
    Path configDirectory; ///< the tool's own folder
    Path hooksFile;       ///< what has the tool call our hook program
    Path serversFile;     ///< what has the tool start our server program
    Path receiptFile;
    Path hookBinary;
    Path mcpBinary;

    /// The three places of the tool are named below `home`; that and `bundle` are absolute.
    static ToolPaths under(const Path& home, const Path& bundle, std::string_view tool,
                           const char* directory, const char* hooksFile, const char* serversFile);

    std::string hookCommand() const; ///< without a slot
    std::string preToolCommand() const;
    std::string mcpCommand() const;

    bool operator==(const ToolPaths&) const = default;
};

} // namespace wendlow
