#include "StorageWords.h"

#include <algorithm>

#include <fmt/format.h>

namespace wendlow {

std::string storageLabel(std::int64_t bytes) {
    constexpr double megabyte = 1024.0 * 1024.0;
    constexpr double largest = 999;
    const double megabytes = static_cast<double>(std::max<std::int64_t>(bytes, 0)) / megabyte;
    return megabytes > largest ? fmt::format("{:.1f} GB", megabytes / 1024.0)
                               : fmt::format("{} MB", static_cast<std::int64_t>(megabytes));
}

} // namespace wendlow
