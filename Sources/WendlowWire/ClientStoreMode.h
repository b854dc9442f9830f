#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <string_view>
#include <system_error>

/// How private things lie in the support folder.
namespace wendlow::ClientStoreMode {

inline constexpr std::uint16_t folder = 0700;
inline constexpr std::uint16_t file = 0600;

/// The same as attribute sets of the file system.
inline constexpr auto privateFolder = std::filesystem::perms{folder};
inline constexpr auto privateFile = std::filesystem::perms{file};

/// Makes the parent folder and what lacks above it, for this person alone; folders that are there
/// keep their modes. Then puts a private file with `data` in place, wholly or not at all: a failure
/// leaves the old file and no temporary one. Flushes to the disk. Blocks.
std::expected<void, std::error_code> write(std::string_view data,
                                           const std::filesystem::path& path);

/// The first half of the above.
std::expected<void, std::error_code> createFolder(const std::filesystem::path& path);

} // namespace wendlow::ClientStoreMode
