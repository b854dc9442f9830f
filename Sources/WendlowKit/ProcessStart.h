#pragma once

#include <chrono>
#include <optional>

namespace wendlow {

/// When this process started, on the clock of file dates; never earlier than it did, and later by
/// some hundredths of a second at most. Nothing where the system does not tell.
std::optional<std::chrono::system_clock::time_point> processStart();

} // namespace wendlow
