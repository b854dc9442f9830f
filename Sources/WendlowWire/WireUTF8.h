#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Well-formed UTF-8 has no surrogates, no overlong forms and nothing past U+10FFFF.
namespace wendlow::WireUTF8 {

struct Character {
    char32_t code = 0;
    std::size_t length = 0; ///< bytes; 1 for what is not well-formed
    bool isWellFormed = false;
};

/// The character that starts at `index`, which lies inside of `text`.
Character characterAt(std::string_view text, std::size_t index);

/// Adds a character's bytes; `code` is one that UTF-8 can hold.
void append(std::string& text, char32_t code);

bool isWellFormed(std::string_view text);

} // namespace wendlow::WireUTF8
