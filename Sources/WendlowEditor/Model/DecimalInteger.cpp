#include "Model/DecimalInteger.h"

#include <charconv>

namespace wendlow {

std::optional<std::int64_t> decimalInteger(std::string_view text) {
    std::string_view digits = text;
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    // A second sign would be taken by the reading below.
    if (digits.size() < text.size() && digits.starts_with('-'))
        return std::nullopt;
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

} // namespace wendlow
