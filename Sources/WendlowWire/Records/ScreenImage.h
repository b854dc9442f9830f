#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Described.h"
#include "WireData.h"

namespace wendlow {

/// The picture of one moment, or in `note` why there is none.
struct ScreenImage {
    std::int64_t moment = 0;
    std::string window;
    std::optional<WireData> heic = std::nullopt;
    std::optional<std::string> note = std::nullopt;
    WENDLOW_RECORD(ScreenImage, moment, window, heic, note);
};

} // namespace wendlow
