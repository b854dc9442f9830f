#pragma once

#include <cstdint>
#include <string>

namespace wendlow::UTF8 {

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
