#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace wendlow {

/// Why a file did not read, or is not fit to be edited.
struct Unreadable {
    std::string reason; ///< as a person reads it
    /// Where in the file. Some reasons have no place.
    std::optional<std::size_t> byte = std::nullopt;

    bool operator==(const Unreadable&) const = default;
};

} // namespace wendlow
