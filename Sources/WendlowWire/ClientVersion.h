#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// The product's version as this process can learn it: an installed application tells it through
/// its bundle, a build in a working tree through the tree's `VERSION` file. Versions have no order
/// here; they are shown, and compared for equality. Every failure to read gives `unknown`.
namespace wendlow::ClientVersion {

using Path = std::filesystem::path;

inline constexpr std::string_view unknown = "0";

/// This process's version, computed once. Any thread.
const std::string& current();

/// The version in `text`: digits between dots, without the white space around them. Nothing for
/// anything else, a pre-release suffix included.
std::optional<std::string> shaped(const std::optional<std::string>& text);

/// What `resolve` asks the file system.
struct Sources {
    std::function<std::optional<std::string>(const Path&)> plist; ///< the list's short version
    std::function<std::optional<std::string>(const Path&)> versionFileText;
    std::function<bool(const Path&)> exists;
};

/// The testable core of `current`.
std::string resolve(const std::optional<Path>& executable, const Sources& sources);

/// The `Info.plist` of the application that this executable lies in, by the layout
/// "X.app/Contents/MacOS/executable" alone; it need not be there.
std::optional<Path> appInfoPlist(const Path& executable);

/// The nearest file "VERSION" in the executable's folder and in up to `levels` folders above it.
std::optional<Path> versionFile(const Path& executable, int levels,
                                const std::function<bool(const Path&)>& exists);

} // namespace wendlow::ClientVersion
