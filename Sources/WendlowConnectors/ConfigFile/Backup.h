#pragma once

#include "ConfigFile/ConfigFileError.h"

#include <chrono>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Verified copies beside a file, `<name>.wendlow-backup-<stamp>[-<n>]`. The names of copies are
/// made and recognised here and nowhere else.
namespace wendlow::Backup {

using Path = std::filesystem::path;
using Date = std::chrono::system_clock::time_point;

/// Copies `file` beside itself, with its exact mode and, as far as this user may, its owner and
/// access list; flushes the copy and reads it back. Nothing when there is no file to copy. The
/// copy's name sorts after that of every copy that is there. `known`: the bytes that the file is
/// known to hold; they are not read again.
std::expected<std::optional<Path>, ConfigFileError>
make(const Path& file, Date date, std::optional<std::string_view> known = std::nullopt);
/// Makes a copy of `file` out of a file beside it, by giving that the name that a new copy has.
std::expected<Path, ConfigFileError> adopt(const Path& aside, const Path& file, Date date);
/// "yyyyMMdd-HHmmss" in the machine's time zone.
std::string stamp(Date date);
/// The copies of `file`, oldest first.
std::vector<Path> all(const Path& file);
/// Whether a file of this name is a copy of `file`, also one that a person has renamed since.
bool isCopy(std::string_view name, const Path& file);
/// Removes all but the two newest copies and returns what was removed. A copy that cannot be
/// removed is passed over.
std::vector<Path> prune(const Path& file);

} // namespace wendlow::Backup
