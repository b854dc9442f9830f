#include "ConfigFile/TOMLText.h"

#include "ConfigFile/JSONEdit.h"
#include "ConfigFile/TOMLBytes.h"
#include "Say.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace wendlow {

std::string TOMLTextError::description() const {
    return say("{} (at byte {})", reason, offset);
}

namespace TOMLText {

namespace {

bool mayStandBare(std::string_view segment) {
    return !segment.empty() && TOMLBytes::skip(TOMLBytes::bareKey, segment, 0) == segment.size();
}

std::string joinedSegments(const auto& segments) {
    std::string result;
    for (std::string_view separator; const std::string_view segment : segments) {
        result += separator;
        result += mayStandBare(segment) ? std::string(segment) : quote(segment);
        separator = ".";
    }
    return result;
}

} // namespace

std::string quote(std::string_view text) {
    std::string result = "\"";
    for (const char byte : text) {
        switch (byte) {
        case '"':
        case '\\':
            result += {'\\', byte};
            break;
        case '\t':
            result += "\\t";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        default:
            if (const auto code = static_cast<unsigned char>(byte); code < 0x20 || code == 0x7F)
                fmt::format_to(std::back_inserter(result), "\\u{:04X}", code);
            else
                result += byte;
        }
    }
    return result += '"';
}

std::string joined(const TOMLName& name) {
    return joinedSegments(name);
}

std::string joined(const TOMLPath& path) {
    return joinedSegments(path);
}

std::string_view lineEnding(std::string_view bytes) {
    return JSONEdit::lineEnding(bytes);
}

} // namespace TOMLText
} // namespace wendlow
