#include "Codec/Writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include <sodium/utils.h>

#include "Codec/Path.h"
#include "WireUTF8.h"

namespace wendlow::Codec {

namespace {

/// How each character below this one is escaped; those above, the two marks apart, stand plain.
constexpr unsigned char firstPlain = 0x20;

struct Escapes {
    std::array<std::array<char, 6>, firstPlain> control{};

    constexpr Escapes() {
        constexpr std::string_view digits = "0123456789abcdef";
        for (std::size_t code = 0; code < control.size(); ++code)
            control[code] = {'\\', 'u', '0', '0', digits[code >> 4U], digits[code & 0xFU]};
    }
};

constexpr Escapes escapes;

/// Empty for a character that stands as it is.
constexpr std::string_view escapeOf(char character) {
    const auto code = static_cast<unsigned char>(character);
    if (code >= firstPlain && code != '"' && code != '\\')
        return {};
    switch (character) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\b':
        return "\\b";
    case '\f':
        return "\\f";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return {escapes.control[code].data(), escapes.control[code].size()};
    }
}

} // namespace

bool Writer::write(bool value) {
    m_text += value ? "true" : "false";
    return true;
}

bool Writer::write(std::int64_t value) {
    std::array<char, 24> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    m_text.append(digits.data(), end);
    return error == std::errc();
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

bool Writer::text(std::string_view value) {
    if (!WireUTF8::isWellFormed(value))
        return fail("a text that is not UTF-8 has no JSON");
    m_text += '"';
    std::size_t plain = 0; // where what is not yet written begins
    for (std::size_t at = 0; at < value.size(); ++at) {
        const std::string_view escape = escapeOf(value[at]);
        if (escape.empty())
            continue;
        m_text.append(value, plain, at - plain).append(escape);
        plain = at + 1;
    }
    m_text.append(value, plain).append("\"");
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
