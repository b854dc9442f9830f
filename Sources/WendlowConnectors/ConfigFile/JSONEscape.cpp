#include "ConfigFile/JSONEscape.h"

#include "ConfigFile/HexDigit.h"
#include "ConfigFile/UTF8.h"
#include "TranslationContext.h"

#include <algorithm>
#include <optional>

namespace wendlow::JSONText {

namespace {

constexpr const char* notFourHexDigits =
    sayLater("a string holds a \\u escape that is not four hex digits");
constexpr const char* unpairedSurrogate = sayLater("a string holds an unpaired surrogate");

bool isHighSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::optional<std::uint32_t> parseHexQuad(const char* at, const char* end) {
    if (end - at < 4) {
        return std::nullopt;
    }
    std::uint32_t quad = 0;
    for (const char byte : std::string_view(at, 4)) {
        const auto digit = hexDigit(byte);
        if (!digit) {
            return std::nullopt;
        }
        quad = quad << 4 | *digit;
    }
    return quad;
}

/// `at` is past the `u`.
Escape readUnicodeEscape(const char* at, const char* end) {
    const auto first = parseHexQuad(at, end);
    if (!first) {
        return {.failure = notFourHexDigits};
    }
    at += 4;
    if (isLowSurrogate(*first)) {
        return {.failure = unpairedSurrogate};
    }
    if (!isHighSurrogate(*first)) {
        return {.next = at, .scalar = *first, .failure = nullptr};
    }
    if (!std::string_view(at, end).starts_with("\\u")) {
        return {.failure = unpairedSurrogate};
    }
    const auto second = parseHexQuad(at + 2, end);
    if (!second) {
        return {.failure = notFourHexDigits};
    }
    if (!isLowSurrogate(*second)) {
        return {.failure = unpairedSurrogate};
    }
    return {.next = at + 6,
            .scalar = 0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00),
            .failure = nullptr};
}

} // namespace

Escape readEscape(const char* at, const char* end) {
    ++at;
    if (at == end) {
        return {.failure = sayLater("the document ended inside an escape")};
    }
    if (*at == 'u') {
        return readUnicodeEscape(at + 1, end);
    }
    const char character = simpleEscape(*at);
    if (character == '\0') {
        return {.failure = sayLater("a string holds an escape that is not JSON's")};
    }
    return {.next = at + 1, .scalar = static_cast<std::uint32_t>(character), .failure = nullptr};
}

std::string decoded(std::string_view body) {
    std::string out;
    out.reserve(body.size());
    const char* const end = body.data() + body.size();
    for (const char* run = body.data();;) {
        const char* const backslash = std::find(run, end, '\\');
        out.append(run, backslash);
        if (backslash == end) {
            return out;
        }
        const auto escape = readEscape(backslash, end);
        UTF8::append(out, escape.scalar);
        run = escape.next;
    }
}

} // namespace wendlow::JSONText
