#include "ConfigFile/TOMLString.h"

#include "ConfigFile/HexDigit.h"
#include "ConfigFile/JSONBytes.h"
#include "ConfigFile/TOMLBytes.h"
#include "ConfigFile/UTF8.h"
#include "TranslationContext.h"

#include <algorithm>
#include <optional>

namespace wendlow {

namespace {

constexpr const char* endedInEscape = sayLater("the file ended inside an escape");

/// What a simple escape stands for, or nothing where the byte begins none.
std::optional<char> simpleEscape(char byte) {
    switch (byte) {
    case 'b':
        return '\b';
    case 't':
        return '\t';
    case 'n':
        return '\n';
    case 'f':
        return '\f';
    case 'r':
        return '\r';
    case '"':
    case '\\':
        return byte;
    default:
        return std::nullopt;
    }
}

} // namespace

std::expected<TOMLString::Text, const char*>
TOMLString::read(std::string_view bytes, std::size_t start, Place place, std::string& decoded) {
    // Most strings stand on one line and have nothing to decode.
    const auto end = TOMLBytes::plainRunEnd(bytes, start + 1);
    if (end < bytes.size() && bytes[end] == bytes[start] && end > start + 1)
        return Text{end + 1, bytes.substr(start + 1, end - start - 1), false};
    TOMLString string(bytes, start, place, decoded);
    if (const Reason reason = string.readToEnd())
        return std::unexpected(reason);
    return string.text();
}

TOMLString::TOMLString(std::string_view bytes, std::size_t start, Place place, std::string& decoded)
    : m_bytes(bytes), m_position(start + 1), m_runStart(start + 1), m_quote(bytes[start]),
      m_decoded(decoded) {
    const bool isTripled =
        bytes.size() - start >= 3 && bytes[start + 1] == m_quote && bytes[start + 2] == m_quote;
    if (place == Place::key || !isTripled)
        return;
    m_isMultiline = true;
    m_position = start + 3;
    // A line break right behind the opening marks is not part of the text.
    m_position += TOMLBytes::lineBreakLength(bytes, m_position);
    m_runStart = m_position;
}

TOMLString::Reason TOMLString::readToEnd() {
    for (;;) {
        m_position = TOMLBytes::plainRunEnd(m_bytes, m_position);
        if (m_position == m_bytes.size())
            return m_isMultiline ? sayLater("a multi-line string never closed")
                                 : sayLater("a string never closed");
        const char byte = m_bytes[m_position];
        Reason reason = nullptr;
        if (byte == m_quote) {
            if (closes())
                return nullptr;
        } else if (byte == '\\' && m_quote == '"') {
            reason = readEscape();
        } else if (byte == '"' || byte == '\'' || byte == '\\') {
            ++m_position;
        } else if (TOMLBytes::lineBreakLength(m_bytes, m_position) != 0) {
            reason = readLineBreak();
        } else if (static_cast<unsigned char>(byte) < 0x80) {
            reason = sayLater("a string holds an unescaped control character");
        } else {
            reason = readCharacter();
        }
        if (reason != nullptr)
            return reason;
    }
}

/// Reads one character outside ASCII.
TOMLString::Reason TOMLString::readCharacter() {
    const auto sequence =
        JSONBytes::utf8Sequence(m_bytes.data() + m_position, m_bytes.data() + m_bytes.size());
    if (!sequence.valid)
        return sayLater("a string holds bytes that are not UTF-8");
    m_position += sequence.length;
    return nullptr;
}

/// Moves past the quotation marks at the position; true if they end the string.
bool TOMLString::closes() {
    if (!m_isMultiline) {
        m_runEnd = m_position++;
        return true;
    }
    const auto after = std::min(m_bytes.find_first_not_of(m_quote, m_position), m_bytes.size());
    // Up to two marks right before the closing three belong to the text.
    const auto count = std::min<std::size_t>(after - m_position, 5);
    m_position += count;
    if (count < 3)
        return false;
    m_runEnd = m_position - 3;
    return true;
}

TOMLString::Reason TOMLString::readLineBreak() {
    if (!m_isMultiline)
        return sayLater("a string ran past the end of its line");
    // The text has one spelling of a line break, whichever the file has.
    if (m_bytes[m_position] == '\r') {
        flush();
        m_runStart = m_position + 1;
        m_isDecoded = true;
        ++m_position;
    }
    ++m_position;
    return nullptr;
}

TOMLString::Reason TOMLString::readEscape() {
    flush();
    ++m_position;
    if (m_position == m_bytes.size())
        return endedInEscape;
    const char byte = m_bytes[m_position];
    if (const auto character = simpleEscape(byte)) {
        m_decoded += *character;
        ++m_position;
    } else if (byte == 'u' || byte == 'U') {
        ++m_position;
        if (const Reason reason = readHexEscape(byte == 'u' ? 4 : 8))
            return reason;
    } else {
        const auto lineEnd = TOMLBytes::skipBlanks(m_bytes, m_position);
        if (!m_isMultiline || TOMLBytes::lineBreakLength(m_bytes, lineEnd) == 0)
            return lineEnd == m_bytes.size()
                       ? endedInEscape
                       : sayLater("a string holds an escape that is not TOML's");
        skipFoldedLines();
    }
    m_runStart = m_position;
    return nullptr;
}

/// The position is past the `u` or `U`.
TOMLString::Reason TOMLString::readHexEscape(std::size_t digits) {
    std::uint32_t scalar = 0;
    for (std::size_t index = 0; index < digits; ++index, ++m_position) {
        if (m_position == m_bytes.size())
            return endedInEscape;
        const auto digit = hexDigit(m_bytes[m_position]);
        if (!digit)
            return digits == 4
                       ? sayLater("a string holds a \\u escape that is not four hex digits")
                       : sayLater("a string holds a \\U escape that is not eight hex digits");
        scalar = scalar << 4 | *digit;
    }
    if (!UTF8::isScalar(scalar))
        return sayLater("a string holds an escape that is not a character");
    UTF8::append(m_decoded, scalar);
    return nullptr;
}

/// A backslash at the end of a line folds the lines: all white space up to the next text goes.
void TOMLString::skipFoldedLines() {
    for (;;) {
        m_position = TOMLBytes::skipBlanks(m_bytes, m_position);
        const auto length = TOMLBytes::lineBreakLength(m_bytes, m_position);
        if (length == 0)
            return;
        m_position += length;
    }
}

/// Takes the source up to the position over into the decoded text.
void TOMLString::flush() {
    if (!m_isDecoded)
        m_decoded.clear();
    m_isDecoded = true;
    m_decoded.append(m_bytes, m_runStart, m_position - m_runStart);
}

TOMLString::Text TOMLString::text() {
    const auto run = m_bytes.substr(m_runStart, m_runEnd - m_runStart);
    if (!m_isDecoded)
        return {m_position, run, false};
    m_decoded += run;
    return {m_position, m_decoded, true};
}

} // namespace wendlow
