#include "StorageWords.h"

#include "Say.h"

#include <algorithm>

namespace wendlow {

std::string storageLabel(std::int64_t bytes) {
    constexpr double megabyte = 1024.0 * 1024.0;
    constexpr double largest = 999;
    const double megabytes = static_cast<double>(std::max<std::int64_t>(bytes, 0)) / megabyte;
    return megabytes > largest ? say("{:.1f} GB", megabytes / 1024.0)
                               : say("{} MB", static_cast<std::int64_t>(megabytes));
}

} // namespace wendlow
