#pragma once

#include <filesystem>
#include <string>

namespace wendlow {

/// Every place that the OpenCode connector looks at or writes, and the commands it writes there.
struct OpenCodePaths {
    using Path = std::filesystem::path;

    Path configDirectory;
    Path configFile;
    Path pluginsDirectory;
    Path pluginFile;
    Path receiptFile;
    Path homeAgentsFile;
    Path dataDirectory;
    Path hookBinary;
    Path mcpBinary;

    /// `home` and `bundle` are absolute.
    static OpenCodePaths under(const Path& home, const Path& bundle);

    std::string hookCommand() const;
    std::string mcpCommand() const;

    Path sessionDatabase() const;
    Path configAgentsFile() const;

    bool operator==(const OpenCodePaths&) const = default;
};

} // namespace wendlow
