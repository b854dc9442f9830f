#pragma once

#include <string>
#include <string_view>

namespace wendlow {

/// Bytes as the contract writes them in a text.
std::string base64(std::string_view bytes);

} // namespace wendlow
