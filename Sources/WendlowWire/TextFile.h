#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace wendlow::TextFile {

/// No file of our own that is read whole comes near this size.
inline constexpr std::size_t sizeLimit = std::size_t{1} << 20U;

/// The bytes of a small file; nothing when it cannot be read, is no regular file or is larger than
/// `sizeLimit`. Blocks.
std::optional<std::string> read(const std::filesystem::path& path);

} // namespace wendlow::TextFile
