#include "WireUTF8.h"

#include <cstdint>
#include <cstring>

namespace wendlow::WireUTF8 {

namespace {

/// How many bytes a character has by its first one; 0 for a byte that starts none.
std::size_t lengthByLead(std::uint8_t lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

} // namespace

Character characterAt(std::string_view text, std::size_t index) {
    constexpr char32_t lowest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<std::uint8_t>(text[index]);
    const std::size_t length = lengthByLead(lead);
    const Character malformed{.code = lead, .length = 1, .isWellFormed = false};
    if (length == 0 || length > text.size() - index)
        return malformed;
    char32_t code = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t trail = 1; trail < length; ++trail) {
        const auto byte = static_cast<std::uint8_t>(text[index + trail]);
        if ((byte & 0xC0U) != 0x80U)
            return malformed;
        code = (code << 6U) | (byte & 0x3FU);
    }
    if (code < lowest[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return malformed;
    return {.code = code, .length = length, .isWellFormed = true};
}

void append(std::string& text, char32_t code) {
    const auto trail = [](char32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        text += trail(code);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        text += trail(code >> 6U);
        text += trail(code);
    } else {
        text += static_cast<char>(0xF0U | (code >> 18U));
        text += trail(code >> 12U);
        text += trail(code >> 6U);
        text += trail(code);
    }
}

bool isWellFormed(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        // Nearly all text is plain, and eight bytes of it are looked at together.
        std::uint64_t eight = 0;
        if (text.size() - at >= sizeof eight) {
            std::memcpy(&eight, text.data() + at, sizeof eight);
            if ((eight & 0x8080808080808080U) == 0) {
                at += sizeof eight;
                continue;
            }
        }
        const Character character = characterAt(text, at);
        if (!character.isWellFormed)
            return false;
        at += character.length;
    }
    return true;
}

} // namespace wendlow::WireUTF8
