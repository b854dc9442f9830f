#pragma once

#include <cstdint>
#include <optional>

namespace wendlow {

/// The value of one hexadecimal digit of either case. Nothing: it is none.
constexpr std::optional<std::uint32_t> hexDigit(char byte) {
    if (byte >= '0' && byte <= '9')
        return static_cast<std::uint32_t>(byte - '0');
    if (byte >= 'a' && byte <= 'f')
        return static_cast<std::uint32_t>(byte - 'a' + 10);
    if (byte >= 'A' && byte <= 'F')
        return static_cast<std::uint32_t>(byte - 'A' + 10);
    return std::nullopt;
}

} // namespace wendlow
