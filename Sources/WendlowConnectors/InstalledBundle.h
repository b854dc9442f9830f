#pragma once

#include <filesystem>
#include <optional>

/// Finds the application bundle that a file lies in. Only asks the file system; any thread.
namespace wendlow::InstalledBundle {

/// The innermost folder above `path`, or `path` itself, that is there and is named `*.app`.
std::optional<std::filesystem::path> enclosing(const std::filesystem::path& path);
/// The bundle of the running program.
std::optional<std::filesystem::path> current();

} // namespace wendlow::InstalledBundle
