#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace wendlow {

/// Why a file did not read, or is not fit to be edited.
struct Unreadable {
    std::string reason; ///< as a person reads it
    std::optional<std::size_t> byte =
        std::nullopt; ///< where in the file; some reasons have no place

    bool operator==(const Unreadable&) const = default;
};

} // namespace wendlow
