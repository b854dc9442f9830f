#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace wendlow::UTF8 {

/// The length of the character that begins at `offset`, or 0 where no valid one does: surrogates,
/// overlong forms, scalars past U+10FFFF and characters cut short are not valid.
inline std::size_t characterLength(std::string_view bytes, std::size_t offset) {
    const auto at = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const unsigned lead = at(offset);
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (bytes.size() - offset < length)
        return 0;
    const unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (at(offset + 1) < lowest || at(offset + 1) > highest)
        return 0;
    for (std::size_t index = 2; index < length; ++index) {
        if ((at(offset + index) & 0xC0U) != 0x80)
            return 0;
    }
    return length;
}

/// Whether `scalar` is a character at all: no surrogate, not past U+10FFFF.
constexpr bool isScalar(std::uint32_t scalar) {
    return scalar <= 0x10FFFF && (scalar < 0xD800 || scalar > 0xDFFF);
}

/// Appends `scalar`, for which `isScalar` holds.
inline void append(std::string& text, std::uint32_t scalar) {
    const auto put = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (scalar < 0x80) {
        put(scalar);
        return;
    }
    if (scalar < 0x800) {
        put(0xC0 | scalar >> 6);
    } else {
        if (scalar < 0x10000) {
            put(0xE0 | scalar >> 12);
        } else {
            put(0xF0 | scalar >> 18);
            put(0x80 | (scalar >> 12 & 0x3F));
        }
        put(0x80 | (scalar >> 6 & 0x3F));
    }
    put(0x80 | (scalar & 0x3F));
}

} // namespace wendlow::UTF8
