#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace wendlow::InfoPlist {

/// The string under `key` in the property list at `path`, whatever format it is written in (XML
/// or binary). Nothing when the file cannot be read, is no property list, or holds no
/// string there.
std::optional<std::string> string(const std::filesystem::path& path, const std::string& key);

} // namespace wendlow::InfoPlist
