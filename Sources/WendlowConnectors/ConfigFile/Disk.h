#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace wendlow {

/// The one seam between the connectors and the file system: every system call that a scan or a
/// commit makes is made here, so that a test can stand at the same door. Failures are `errno`
/// values; `Disk::words` puts them in the system's own words. Blocks; any thread.
namespace Disk {

using Path = std::filesystem::path;
template<class T> using Result = std::expected<T, int>;

std::string words(int error);

/// The whole file, or nothing when there is none at this path (a dangling link counts as none).
/// Any other failure, a directory at the path included, is an error.
Result<std::optional<std::string>> read(const Path& path);

bool exists(const Path& path);      ///< anything stands there, links followed
bool isDirectory(const Path& path); ///< links followed
bool isWritable(const Path& path);  ///< by this user

Result<mode_t> mode(const Path& path); ///< the permission bits
Result<void> setMode(const Path& path, mode_t mode);

/// Writes a file that must not be there yet, with exactly `mode`, flushed to the disk. On failure
/// nothing is left at `path` unless removing it failed too.
Result<void> create(const Path& path, std::string_view bytes, mode_t mode);
Result<void> rename(const Path& from, const Path& to);
Result<void> remove(const Path& path); ///< a file; ENOENT is an error
Result<void> createDirectories(const Path& path, mode_t mode);

/// The names in a folder, sorted by bytes; an unreadable folder is an error.
Result<std::vector<std::string>> names(const Path& folder);

} // namespace Disk
} // namespace wendlow
