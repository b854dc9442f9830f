#pragma once

#include <string_view>

namespace wendlow::Blanks {

/// Without the blanks and tabs at both ends; line ends are no blanks.
constexpr std::string_view trimmed(std::string_view text) {
    constexpr auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace wendlow::Blanks
