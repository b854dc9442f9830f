#pragma once

#include <string_view>

namespace wendlow {

/// "\r\n" if one CR LF occurs anywhere in `text`, otherwise "\n". One pair settles it for the whole
/// file; a lone carriage return is no line ending.
inline std::string_view lineEnding(std::string_view text) {
    return text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
}

} // namespace wendlow
