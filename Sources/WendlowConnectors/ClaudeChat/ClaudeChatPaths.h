#pragma once

#include <filesystem>

namespace wendlow {

/// Every place of Claude's desktop app that earlier versions wrote.
struct ClaudeChatPaths {
    using Path = std::filesystem::path;

    Path configDirectory;
    Path configFile;
    Path receiptFile; ///< of earlier versions; not consulted any more
    Path mcpBinary;

    /// `home` and `bundle` are absolute.
    static ClaudeChatPaths under(const Path& home, const Path& bundle);

    bool operator==(const ClaudeChatPaths&) const = default;
};

} // namespace wendlow
