#pragma once

#include <filesystem>

namespace wendlow::ConfigPath {

/// Where `path` really leads: links resolved; where the file is not there yet, its folder resolved
/// and the name appended; where that fails too, `path` as it came.
std::filesystem::path canonical(const std::filesystem::path& path);

} // namespace wendlow::ConfigPath
