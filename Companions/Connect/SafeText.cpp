#include "SafeText.h"

#include "ConfigFile/JSONBytes.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow::connect::SafeText {

JSONLiteral literal(std::string_view bytes) {
    std::string repaired;
    for (const char *at = bytes.data(), *end = at + bytes.size(); at != end;) {
        const auto sequence = JSONBytes::utf8Sequence(at, end);
        repaired += sequence.valid ? std::string_view(at, sequence.length) : "\uFFFD";
        at += sequence.length;
    }
    return JSONLiteral::string(std::move(repaired));
}

std::string shown(std::string_view bytes) {
    std::string result;
    for (const char *at = bytes.data(), *end = at + bytes.size(); at != end;) {
        const auto sequence = JSONBytes::utf8Sequence(at, end);
        const std::string_view one(at, sequence.length);
        const auto last = static_cast<unsigned char>(one.back());
        const bool isControl = one.size() == 1
                                   ? last < 0x20 || last == 0x7f || !sequence.valid
                                   : !sequence.valid || (one.front() == '\xc2' && last < 0xa0);
        if (!isControl)
            result += one;
        else
            for (const char byte : one)
                result += fmt::format("\\x{:02x}", static_cast<unsigned char>(byte));
        at += sequence.length;
    }
    return result;
}

} // namespace wendlow::connect::SafeText
