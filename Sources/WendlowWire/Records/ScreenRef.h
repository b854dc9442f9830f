#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Described.h"

namespace wendlow {

/// A moment's picture, and of one window of it when `window` is present.
struct ScreenRef {
    std::int64_t moment = 0;
    std::optional<std::string> window = std::nullopt;
    WENDLOW_RECORD(ScreenRef, moment, window);
};

} // namespace wendlow
