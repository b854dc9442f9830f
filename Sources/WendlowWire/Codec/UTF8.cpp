#include "Codec/UTF8.h"

#include <cstdint>

namespace wendlow::Codec {

namespace {

/// How many bytes the well-formed character at the start of `text` has; 0 when there is none.
std::size_t characterLength(std::string_view text) {
    const auto byte = [text](std::size_t index) -> std::uint8_t {
        return index < text.size() ? static_cast<std::uint8_t>(text[index]) : std::uint8_t{0};
    };
    const auto isTrail = [&](std::size_t index) { return (byte(index) & 0xC0) == 0x80; };
    const std::uint8_t lead = byte(0);
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return isTrail(1) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        const std::uint8_t lowest = lead == 0xE0 ? 0xA0 : 0x80;
        const std::uint8_t highest = lead == 0xED ? 0x9F : 0xBF;
        return byte(1) >= lowest && byte(1) <= highest && isTrail(2) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const std::uint8_t lowest = lead == 0xF0 ? 0x90 : 0x80;
        const std::uint8_t highest = lead == 0xF4 ? 0x8F : 0xBF;
        return byte(1) >= lowest && byte(1) <= highest && isTrail(2) && isTrail(3) ? 4 : 0;
    }
    return 0;
}

} // namespace

bool isUTF8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

} // namespace wendlow::Codec
