#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace wendlow::JSONText {

/// One escape of a string: what follows it and the scalar that it stands for, or what is wrong
/// with it.
struct Escape {
    const char* next = nullptr;
    std::uint32_t scalar = 0;
    const char* failure = nullptr; ///< a marked sentence; null when it is sound
};

/// What a one-letter escape stands for, or NUL where `letter` makes none.
constexpr char simpleEscape(char letter) {
    switch (letter) {
    case '"':
    case '\\':
    case '/':
        return letter;
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return '\0';
    }
}

/// Reads the escape whose backslash is at `at`, which is before `end`.
Escape readEscape(const char* at, const char* end);

/// The text of a string's body, which a scan has found sound.
std::string decoded(std::string_view body);

} // namespace wendlow::JSONText
