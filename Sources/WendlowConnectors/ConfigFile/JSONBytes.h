#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace wendlow::JSONBytes {

/// Eight bytes as a number whose lowest byte is the first one. The caller has eight to read.
inline std::uint64_t loadEight(const char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return std::endian::native == std::endian::little ? word : std::byteswap(word);
}

inline unsigned char unsignedByte(const char* at) {
    return static_cast<unsigned char>(*at);
}

/// How far a UTF-8 sequence goes: over the whole character when it is `valid`, otherwise over as
/// many bytes as could still have become one, and at least one.
struct UTF8Sequence {
    std::size_t length = 0;
    bool valid = false;
};

/// The sequence that begins at `at`, which is before `end`. Surrogates, overlong forms and scalars
/// past U+10FFFF are not valid.
inline UTF8Sequence utf8Sequence(const char* at, const char* end) {
    const auto lead = unsignedByte(at);
    if (lead < 0x80) {
        return {1, true};
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return {1, false};
    }
    const std::size_t wanted = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (std::size_t length = 1; length < wanted; ++length) {
        if (at + length == end || unsignedByte(at + length) < lowest ||
            unsignedByte(at + length) > highest) {
            return {length, false};
        }
        lowest = 0x80;
        highest = 0xBF;
    }
    return {wanted, true};
}

/// Whether all of `text` is UTF-8.
inline bool isUTF8(std::string_view text) {
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end;) {
        const UTF8Sequence sequence = utf8Sequence(at, end);
        if (!sequence.valid) {
            return false;
        }
        at += sequence.length;
    }
    return true;
}

/// Past the white space at `at`. Indentation goes by eights.
inline const char* whitespaceEnd(const char* at, const char* end) {
    constexpr std::uint64_t eightSpaces = 0x2020202020202020;
    while (at != end && (*at == ' ' || *at == '\n' || *at == '\r' || *at == '\t')) {
        ++at;
        while (end - at >= 8 && loadEight(at) == eightSpaces) {
            at += 8;
        }
    }
    return at;
}

/// The first byte in `at..<end` that a string cannot simply contain: a quotation mark, a backslash,
/// a control character or a byte that is not ASCII; `end` if there is none.
inline const char* plainRunEnd(const char* at, const char* end) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    for (; end - at >= 8; at += 8) {
        const auto word = loadEight(at);
        // The top bit of each byte tells. A borrow can reach only bytes after a true find, and the
        // first find is the one that counts.
        const auto found = (((word ^ ones * '"') - ones) | ((word ^ ones * '\\') - ones) |
                            (word - ones * 0x20) | word) &
                           (ones * 0x80);
        if (found != 0) {
            return at + std::countr_zero(found) / 8;
        }
    }
    for (; at != end; ++at) {
        const auto byte = unsignedByte(at);
        if (byte == '"' || byte == '\\' || byte < 0x20 || byte >= 0x80) {
            break;
        }
    }
    return at;
}

} // namespace wendlow::JSONBytes
