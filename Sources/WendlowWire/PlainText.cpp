#include "PlainText.h"

#include <cwctype>

#include <locale.h>

#include "WireUTF8.h"

namespace wendlow::PlainText {

namespace {

bool isBlank(char32_t code) {
    switch (code) {
    case U' ':
    case U'\u0085':
    case U'\u00a0':
    case U'\u1680':
    case U'\u2028':
    case U'\u2029':
    case U'\u202f':
    case U'\u205f':
    case U'\u3000':
        return true;
    default:
        return (code >= U'\t' && code <= U'\r') || (code >= U'\u2000' && code <= U'\u200b');
    }
}

/// A locale that knows the letters of all scripts; none where the system has no such.
locale_t everyScript() {
    static const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    std::size_t first = text.size();
    std::size_t end = 0;
    for (std::size_t at = 0; at < text.size();) {
        const WireUTF8::Character character = WireUTF8::characterAt(text, at);
        const std::size_t next = at + character.length;
        if (!character.isWellFormed || !isBlank(character.code)) {
            first = std::min(first, at);
            end = next;
        }
        at = next;
    }
    return first < end ? text.substr(first, end - first) : std::string_view{};
}

std::string lowerCased(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const WireUTF8::Character character = WireUTF8::characterAt(text, at);
        const auto code = static_cast<wint_t>(character.code);
        const wint_t lower = character.code < 0x80
                                 ? static_cast<wint_t>(std::tolower(static_cast<int>(code)))
                             : everyScript() ? ::towlower_l(code, everyScript())
                                             : code;
        if (character.isWellFormed && lower != code)
            WireUTF8::append(result, static_cast<char32_t>(lower));
        else
            result += text.substr(at, character.length);
        at += character.length;
    }
    return result;
}

} // namespace wendlow::PlainText
