#pragma once

#include "ConfigFile/SixteenBytes.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// What each byte can mean to the scanner, as a table, so that a run of plain bytes costs one look
/// per byte.
namespace wendlow::TOMLBytes {

enum Class : std::uint8_t {
    bareKey = 1,       ///< may stand in a key without quotation marks
    endsPlainRun = 2,  ///< a string cannot simply contain it, or may end at it
    endsPlainWord = 4, ///< a value outside strings and brackets ends at it or changes with it
    inBrackets = 8,    ///< means something between brackets
};

constexpr std::array<std::uint8_t, 256> classes = [] {
    std::array<std::uint8_t, 256> table{};
    const auto add = [&table](std::string_view bytes, Class kind) {
        for (const char byte : bytes)
            table[static_cast<unsigned char>(byte)] |= kind;
    };
    add("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_", bareKey);
    add("\"'\\\x7F", endsPlainRun);
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        if ((byte < 0x20 && byte != '\t') || byte >= 0x80)
            table[byte] |= endsPlainRun;
    }
    add(" \t\r\n#\"'[]{}", endsPlainWord);
    add("#\"'[]{}", inBrackets);
    return table;
}();

constexpr bool is(Class kind, char byte) {
    return (classes[static_cast<unsigned char>(byte)] & kind) != 0;
}

/// The first offset from `offset` on whose byte is of `kind`; the size if there is none.
constexpr std::size_t find(Class kind, std::string_view bytes, std::size_t offset) {
    while (offset < bytes.size() && !is(kind, bytes[offset]))
        ++offset;
    return offset;
}

/// The same for `endsPlainRun`, of which most strings hold none for long.
inline std::size_t plainRunEnd(std::string_view bytes, std::size_t offset) {
#ifdef __SSE2__
    for (; offset + 16 <= bytes.size(); offset += 16) {
        const auto block = SixteenBytes::load(bytes.data() + offset);
        const auto found = (block.are('"') | block.are('\'') | block.are('\\') | block.are('\x7F') |
                            block.areNoPlainASCII().without(block.are('\t')))
                               .bits();
        if (found != 0)
            return offset + static_cast<std::size_t>(std::countr_zero(found));
    }
#endif
    return find(endsPlainRun, bytes, offset);
}

/// The first offset from `offset` on whose byte is not of `kind`; the size if there is none.
constexpr std::size_t skip(Class kind, std::string_view bytes, std::size_t offset) {
    while (offset < bytes.size() && is(kind, bytes[offset]))
        ++offset;
    return offset;
}

/// Past the spaces and tabs at `offset`.
constexpr std::size_t skipBlanks(std::string_view bytes, std::size_t offset) {
    while (offset < bytes.size() && (bytes[offset] == ' ' || bytes[offset] == '\t'))
        ++offset;
    return offset;
}

/// The length of the line break at `offset`: 2 for CR LF, 1 for LF, 0 where none is.
constexpr std::size_t lineBreakLength(std::string_view bytes, std::size_t offset) {
    const auto rest = bytes.substr(offset, 2);
    return rest == "\r\n" ? 2 : rest.starts_with('\n') ? 1 : 0;
}

/// Where the text begins: behind a UTF-8 byte-order mark, if there is one.
constexpr std::size_t textStart(std::string_view bytes) {
    return bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
}

} // namespace wendlow::TOMLBytes
