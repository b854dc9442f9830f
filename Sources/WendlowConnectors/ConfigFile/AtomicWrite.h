#pragma once

#include "ConfigFile/ConfigFileError.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <string_view>

namespace wendlow::AtomicWrite {

/// Writes `bytes` to a temporary file beside `path`, flushes it, gives it the mode that `path` has
/// (a new file gets the default mode), and renames it over `path`. `beforeRename`, where given, is
/// called just before that. A failure leaves `path` as it was and no temporary file.
std::expected<void, ConfigFileError> write(std::string_view bytes,
                                           const std::filesystem::path& path,
                                           const std::function<void()>& beforeRename = {});

} // namespace wendlow::AtomicWrite
