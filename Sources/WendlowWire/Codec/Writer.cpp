#include "Codec/Writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include <boost/json/serialize.hpp>
#include <sodium/utils.h>

#include "Codec/Path.h"
#include "WireUTF8.h"

namespace wendlow::Codec {

bool Writer::write(bool value) {
    m_text += value ? "true" : "false";
    return true;
}

bool Writer::write(std::int64_t value) {
    m_text += std::to_string(value);
    return true;
}

bool Writer::write(double value) {
    if (!std::isfinite(value))
        return fail("a number that is not finite has no JSON");
    // The shortest spelling that reads back as the same number.
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    m_text.append(digits.data(), end);
    return error == std::errc();
}

bool Writer::write(const std::string& value) {
    return text(value);
}

bool Writer::write(const WireData& value) {
    constexpr int variant = sodium_base64_VARIANT_ORIGINAL;
    std::string base64(sodium_base64_encoded_len(value.bytes.size(), variant), '\0');
    sodium_bin2base64(base64.data(), base64.size(),
                      reinterpret_cast<const unsigned char*>(value.bytes.data()),
                      value.bytes.size(), variant);
    base64.pop_back(); // the terminator
    m_text.append("\"").append(base64).append("\"");
    return true;
}

bool Writer::write(const FilterValue& value) {
    return std::visit([this](const auto& scalar) { return write(scalar); }, value);
}

bool Writer::key(std::string_view name) {
    if (!text(name))
        return false;
    m_text += ':';
    return true;
}

bool Writer::text(std::string_view value) {
    if (!WireUTF8::isWellFormed(value))
        return fail("a text that is not UTF-8 has no JSON");
    m_text += boost::json::serialize(value);
    return true;
}

bool Writer::failed(std::string_view step) {
    Path::prepend(m_error.path, step);
    return false;
}

bool Writer::failed(std::size_t index) {
    Path::prepend(m_error.path, index);
    return false;
}

bool Writer::fail(std::string sentence) {
    m_error.sentence = std::move(sentence);
    return false;
}

} // namespace wendlow::Codec
