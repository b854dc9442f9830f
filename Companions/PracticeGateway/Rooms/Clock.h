#pragma once

#include <chrono>
#include <functional>

namespace wendlow {

/// What a room takes for now.
using Clock = std::function<std::chrono::system_clock::time_point()>;

/// As the contract has times: seconds since 1970.
inline double secondsOf(std::chrono::system_clock::time_point time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
}

} // namespace wendlow
