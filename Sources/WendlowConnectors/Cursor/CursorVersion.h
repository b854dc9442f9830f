#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace wendlow::CursorVersion {

/// The version that the application at `app` says it is, blanks around it taken off; nothing when
/// it says none. Reads one file.
std::optional<std::string> read(const std::filesystem::path& app);

} // namespace wendlow::CursorVersion
