#pragma once

#include <string_view>

namespace wendlow::Codec {

/// Whether `text` is well-formed UTF-8: no surrogates, no overlong forms, nothing past U+10FFFF.
bool isUTF8(std::string_view text);

} // namespace wendlow::Codec
