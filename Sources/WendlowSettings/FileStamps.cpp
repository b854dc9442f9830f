#include "FileStamps.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

namespace wendlow {

namespace {

std::string stampOf(const std::filesystem::path& path) {
    std::error_code missing;
    const auto status = std::filesystem::status(path, missing);
    if (!std::filesystem::exists(status))
        return "nothing";
    std::error_code none;
    const bool isFile = std::filesystem::is_regular_file(status);
    const auto size = isFile ? std::filesystem::file_size(path, none) : 0;
    const auto changed = std::filesystem::last_write_time(path, none).time_since_epoch().count();
    return fmt::format("{} {} {}", static_cast<int>(status.permissions()), size, changed);
}

} // namespace

FileStamps stampsOf(const std::vector<std::string>& paths) {
    FileStamps stamps;
    for (const std::string& path : paths)
        stamps.emplace(path, stampOf(path));
    return stamps;
}

} // namespace wendlow
