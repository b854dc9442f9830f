#pragma once

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>

/// The names that are this product's own, wherever a connector writes or recognises them. Pure; any
/// thread.
namespace wendlow::OwnedNames {

inline constexpr std::string_view application = "Wendlow.app";
inline constexpr std::string_view hookProgram = "wendlow-hook";
inline constexpr std::string_view mcpProgram = "wendlow-mcp";
/// The key of our server in a tool's list of servers.
inline constexpr std::string_view server = "wendlow";
inline constexpr std::string_view plugin = "wendlow.js";
/// A source checkout, whoever's home it lies in.
inline constexpr std::string_view checkout = "/fenmoor/wendlow";

/// One of the two programs inside a copy of the application.
inline std::filesystem::path program(const std::filesystem::path& bundle, std::string_view name) {
    return bundle / "Contents/MacOS" / name;
}
/// Where applications keep what is theirs below a home.
inline std::filesystem::path support(const std::filesystem::path& home) {
    return home / "Library/Application Support";
}
/// The receipt of the tool with this id.
inline std::filesystem::path receipt(const std::filesystem::path& home, std::string_view tool) {
    return support(home) / "Wendlow/Connectors" / (std::string(tool) + ".json");
}

/// Whether `command` runs what a build in a source checkout made.
inline bool isDevelopmentBuild(std::string_view command) {
    static constexpr std::array folders{"/dist-dev/", "/dist-prod/", "/.build/"};
    return std::ranges::any_of(folders, [&](const char* folder) {
        return command.contains(std::string(checkout) + folder);
    });
}

} // namespace wendlow::OwnedNames
