// The scanner's strings. What can go wrong in one is told with the offset of its opening quote.

#include "ConfigFile/JSONBytes.h"
#include "ConfigFile/JSONScanner.h"

#include <cstring>

namespace wendlow::JSONText {

namespace {

constexpr std::string_view notFourHexDigits =
    "a string holds a \\u escape that is not four hex digits";
constexpr std::string_view unpairedSurrogate = "a string holds an unpaired surrogate";
constexpr std::string_view endedInString = "the document ended inside a string";
constexpr std::string_view controlCharacter = "a string holds an unescaped control character";

void appendUTF8(char*& out, std::uint32_t scalar) {
    const auto put = [&out](std::uint32_t byte) { *out++ = static_cast<char>(byte); };
    if (scalar < 0x80) {
        put(scalar);
        return;
    }
    if (scalar < 0x800) {
        put(0xC0 | scalar >> 6);
    } else {
        if (scalar < 0x10000) {
            put(0xE0 | scalar >> 12);
        } else {
            put(0xF0 | scalar >> 18);
            put(0x80 | (scalar >> 12 & 0x3F));
        }
        put(0x80 | (scalar >> 6 & 0x3F));
    }
    put(0x80 | (scalar & 0x3F));
}

void flushRaw(char*& out, const char* run, const char* runEnd) {
    const auto size = static_cast<std::size_t>(runEnd - run);
    std::memcpy(out, run, size);
    out += size;
}

/// What a simple escape stands for, or NUL where the byte begins none.
char simpleEscape(char byte) {
    switch (byte) {
    case '"':
    case '\\':
    case '/':
        return byte;
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return '\0';
    }
}

} // namespace

bool Scanner::parseString() {
    m_openingQuote = m_at;
    const char* const at = rawRunEnd(m_at + 1);
    if (at == nullptr) {
        return false;
    }
    if (*at == '\\') {
        return parseEscapedString(at);
    }
    m_at = at + 1;
    m_tape.addScalar(JSONTape::Tag::string, offset(m_openingQuote), offset(m_at));
    return true;
}

/// The rest of a string whose first escape is at `at`; its text is decoded onto the tape.
bool Scanner::parseEscapedString(const char* at) {
    char* const decoded = m_tape.decodedEnd(static_cast<std::size_t>(m_end - m_openingQuote));
    char* out = decoded;
    const char* run = m_openingQuote + 1;
    for (;;) {
        flushRaw(out, run, at);
        if (*at == '"') {
            break;
        }
        run = parseEscape(at, out);
        at = run != nullptr ? rawRunEnd(run) : nullptr;
        if (at == nullptr) {
            return false;
        }
    }
    m_at = at + 1;
    m_tape.addEscapedString(offset(m_openingQuote), offset(m_at),
                            static_cast<std::size_t>(out - decoded));
    return true;
}

/// The quotation mark or the backslash that ends the raw run at `at`; nothing after a failure.
const char* Scanner::rawRunEnd(const char* at) {
    for (;;) {
        at = JSONBytes::plainRunEnd(at, m_end);
        if (at == m_end) {
            return failString(endedInString);
        }
        if (*at == '"' || *at == '\\') {
            return at;
        }
        if (JSONBytes::unsignedByte(at) < 0x20) {
            return failString(controlCharacter);
        }
        do {
            const auto sequence = JSONBytes::utf8Sequence(at, m_end);
            if (!sequence.valid) {
                return failRawRun(at);
            }
            at += sequence.length;
        } while (at != m_end && JSONBytes::unsignedByte(at) >= 0x80);
    }
}

/// A run is judged as UTF-8 only where it ends, so that what ends it has the first word.
std::nullptr_t Scanner::failRawRun(const char* at) {
    while (at != m_end && JSONBytes::unsignedByte(at) >= 0x20 && *at != '"' && *at != '\\') {
        ++at;
    }
    if (at == m_end) {
        return failString(endedInString);
    }
    return failString(JSONBytes::unsignedByte(at) < 0x20
                          ? controlCharacter
                          : "a string holds bytes that are not UTF-8");
}

/// Decodes the escape whose backslash is at `at`; gives what follows it.
const char* Scanner::parseEscape(const char* at, char*& out) {
    ++at;
    if (at == m_end) {
        return failString("the document ended inside an escape");
    }
    if (*at == 'u') {
        return parseUnicodeEscape(at + 1, out);
    }
    const char character = simpleEscape(*at);
    if (character == '\0') {
        return failString("a string holds an escape that is not JSON's");
    }
    *out++ = character;
    return at + 1;
}

/// `at` is past the `u`.
const char* Scanner::parseUnicodeEscape(const char* at, char*& out) {
    const auto first = parseHexQuad(at);
    if (!first) {
        return failString(notFourHexDigits);
    }
    at += 4;
    auto scalar = *first;
    if (scalar >= 0xD800 && scalar <= 0xDBFF) {
        if (!std::string_view(at, m_end).starts_with("\\u")) {
            return failString(unpairedSurrogate);
        }
        const auto second = parseHexQuad(at + 2);
        if (!second) {
            return failString(notFourHexDigits);
        }
        if (*second < 0xDC00 || *second > 0xDFFF) {
            return failString(unpairedSurrogate);
        }
        at += 6;
        scalar = 0x10000 + ((scalar - 0xD800) << 10) + (*second - 0xDC00);
    } else if (scalar >= 0xDC00 && scalar <= 0xDFFF) {
        return failString(unpairedSurrogate);
    }
    appendUTF8(out, scalar);
    return at;
}

std::optional<std::uint32_t> Scanner::parseHexQuad(const char* at) {
    if (m_end - at < 4) {
        return std::nullopt;
    }
    std::uint32_t quad = 0;
    for (const char byte : std::string_view(at, 4)) {
        std::uint32_t digit = 0;
        if (byte >= '0' && byte <= '9') {
            digit = static_cast<std::uint32_t>(byte - '0');
        } else if (byte >= 'a' && byte <= 'f') {
            digit = static_cast<std::uint32_t>(byte - 'a' + 10);
        } else if (byte >= 'A' && byte <= 'F') {
            digit = static_cast<std::uint32_t>(byte - 'A' + 10);
        } else {
            return std::nullopt;
        }
        quad = quad << 4 | digit;
    }
    return quad;
}

} // namespace wendlow::JSONText
