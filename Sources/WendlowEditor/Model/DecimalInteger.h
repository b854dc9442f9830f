#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace wendlow {

/// A whole number in decimal digits, with or without a sign, and nothing else. Nothing where the
/// text is none, or one beyond 64 bits.
std::optional<std::int64_t> decimalInteger(std::string_view text);

} // namespace wendlow
