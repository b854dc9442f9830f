#include "Base64.h"

#include <sodium.h>

namespace wendlow {

std::string base64(std::string_view bytes) {
    constexpr int variant = sodium_base64_VARIANT_ORIGINAL;
    // One character too long: the terminator is counted.
    std::string text(sodium_base64_encoded_len(bytes.size(), variant), '\0');
    sodium_bin2base64(text.data(), text.size(),
                      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes
                      reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), variant);
    text.pop_back();
    return text;
}

} // namespace wendlow
