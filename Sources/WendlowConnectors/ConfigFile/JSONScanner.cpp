#include "ConfigFile/JSONScanner.h"

#include "ConfigFile/JSONBytes.h"
#include "ConfigFile/JSONComments.h"
#include "ConfigFile/JSONEscape.h"
#include "Say.h"

#include <string>

namespace wendlow::JSONText {

namespace {

using Tag = JSONTape::Tag;

constexpr int deepest = 64;
constexpr const char* valueExpected = sayLater("a value was expected");
constexpr const char* endedInString = sayLater("the document ended inside a string");
constexpr const char* controlCharacter = sayLater("a string holds an unescaped control character");

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

} // namespace

std::optional<JSONTextError> Scanner::scan() {
    bool scanned = skipTrivia() && parseValue() && skipTrivia();
    if (scanned && !atEnd()) {
        scanned = fail(sayLater("there are bytes after the top-level value"), m_at);
    }
    if (scanned) {
        return std::nullopt;
    }
    return JSONTextError{offset(m_failure.at), say(m_failure.reason)};
}

bool Scanner::skipTrivia() {
    m_at = JSONBytes::whitespaceEnd(m_at, m_end);
    if (m_dialect == JSONDialect::json || atEnd() || *m_at != '/') {
        return true;
    }
    return skipComments();
}

bool Scanner::skipComments() {
    const std::string_view bytes(m_begin, offset(m_end));
    for (;;) {
        const auto comment = JSONComments::span(bytes, offset(m_at));
        if (!comment) {
            return fail(sayLater("the document ended inside a comment"), m_at);
        }
        if (!*comment) {
            return true;
        }
        m_tape.addComment(**comment);
        m_at = JSONBytes::whitespaceEnd(m_begin + (*comment)->upper, m_end);
    }
}

bool Scanner::parseValue() {
    if (atEnd()) {
        return fail(sayLater("the document ended where a value was expected"), m_at);
    }
    switch (*m_at) {
    case '"':
        return parseString();
    case '[':
        return parseArray();
    case '{':
        return parseObject();
    case 'f':
        return parseLiteral("false", Tag::falseLiteral);
    case 't':
        return parseLiteral("true", Tag::trueLiteral);
    case 'n':
        return parseLiteral("null", Tag::null);
    default:
        return parseNumber();
    }
}

bool Scanner::parseLiteral(std::string_view word, Tag kind) {
    if (!std::string_view(m_at, m_end).starts_with(word)) {
        return fail(valueExpected, m_at);
    }
    m_tape.addScalar(kind, offset(m_at), word.size());
    m_at += word.size();
    return true;
}

bool Scanner::parseNumber() {
    const char* const start = m_at;
    if (*m_at == '-') {
        ++m_at;
    }
    if (!atEnd() && *m_at == '0') {
        ++m_at; // a further digit is for the caller to refuse
    } else if (!skipDigits()) {
        return fail(valueExpected, start);
    }
    if (!atEnd() && *m_at == '.') {
        ++m_at;
        if (!skipDigits()) {
            return fail(valueExpected, start);
        }
    }
    if (!atEnd() && (*m_at == 'e' || *m_at == 'E')) {
        ++m_at;
        if (!atEnd() && (*m_at == '+' || *m_at == '-')) {
            ++m_at;
        }
        if (!skipDigits()) {
            return fail(valueExpected, start);
        }
    }
    m_tape.addScalar(Tag::number, offset(start), static_cast<std::size_t>(m_at - start));
    return true;
}

/// At least one digit.
bool Scanner::skipDigits() {
    const char* const start = m_at;
    while (!atEnd() && isDigit(*m_at)) {
        ++m_at;
    }
    return m_at != start;
}

/// Depth falls again where a container closes; a failed scan has no use for it.
bool Scanner::enter() {
    if (++m_depth > deepest) {
        return fail(sayLater("the document nests deeper than 64 levels"), m_at);
    }
    return true;
}

bool Scanner::parseObject() {
    if (!enter()) {
        return false;
    }
    const auto opening = m_tape.open(Tag::object, offset(m_at));
    ++m_at;
    if (!skipTrivia()) {
        return false;
    }
    if (atEnd() || *m_at != '}') {
        for (;; ++m_at) {
            if (!parseMember()) {
                return false;
            }
            if (atEnd()) {
                return fail(sayLater("the document ended inside an object"), m_at);
            }
            if (*m_at == '}') {
                break;
            }
            if (*m_at != ',') {
                return fail(sayLater("a comma or a closing brace was expected"), m_at);
            }
            if (isClosedBehindComma('}')) {
                break;
            }
        }
    }
    m_tape.close(opening, offset(m_at));
    ++m_at;
    --m_depth;
    return true;
}

/// Whether the comma at the position is the last thing in its container; then the position is on
/// the bracket. What is wrong with a comment on the way is told by who reads on.
bool Scanner::isClosedBehindComma(char bracket) {
    if (m_dialect == JSONDialect::json) {
        return false;
    }
    const char* const bracketAt =
        JSONComments::triviaEnd({m_begin, offset(m_end)}, offset(m_at) + 1) + m_begin;
    if (bracketAt == m_end || *bracketAt != bracket) {
        return false;
    }
    ++m_at;
    return skipTrivia();
}

/// A member with the trivia on both sides of it.
bool Scanner::parseMember() {
    if (!skipTrivia()) {
        return false;
    }
    if (atEnd() || *m_at != '"') {
        return fail(sayLater("a member name was expected"), m_at);
    }
    if (!parseString() || !skipTrivia()) {
        return false;
    }
    if (atEnd() || *m_at != ':') {
        return fail(sayLater("a colon was expected after a member name"), m_at);
    }
    ++m_at;
    return skipTrivia() && parseValue() && skipTrivia();
}

bool Scanner::parseArray() {
    if (!enter()) {
        return false;
    }
    const auto opening = m_tape.open(Tag::array, offset(m_at));
    ++m_at;
    if (!skipTrivia()) {
        return false;
    }
    if (atEnd() || *m_at != ']') {
        for (;; ++m_at) {
            if (!skipTrivia() || !parseValue() || !skipTrivia()) {
                return false;
            }
            if (atEnd()) {
                return fail(sayLater("the document ended inside an array"), m_at);
            }
            if (*m_at == ']') {
                break;
            }
            if (*m_at != ',') {
                return fail(sayLater("a comma or a closing bracket was expected"), m_at);
            }
            if (isClosedBehindComma(']')) {
                break;
            }
        }
    }
    m_tape.close(opening, offset(m_at));
    ++m_at;
    --m_depth;
    return true;
}

/// Whatever is wrong in a string is told at its opening quote.
bool Scanner::parseString() {
    const char* const open = m_at;
    auto tag = Tag::string;
    ++m_at;
    for (;;) {
        m_at = JSONBytes::plainRunEnd(m_at, m_end);
        if (atEnd()) {
            return fail(endedInString, open);
        }
        if (*m_at == '"') {
            ++m_at;
            m_tape.addScalar(tag, offset(open), static_cast<std::size_t>(m_at - open));
            return true;
        }
        if (*m_at == '\\') {
            tag = Tag::escapedString;
            if (!skipEscape(open)) {
                return false;
            }
        } else if (JSONBytes::unsignedByte(m_at) < 0x20) {
            return fail(controlCharacter, open);
        } else if (!skipNonASCII(open)) {
            return false;
        }
    }
}

bool Scanner::skipEscape(const char* open) {
    if (m_end - m_at >= 2 && simpleEscape(m_at[1]) != '\0') {
        m_at += 2;
        return true;
    }
    const auto escape = readEscape(m_at, m_end);
    m_at = escape.next;
    return escape.failure == nullptr || fail(escape.failure, open);
}

/// The characters up to the next ASCII byte.
bool Scanner::skipNonASCII(const char* open) {
    while (!atEnd() && JSONBytes::unsignedByte(m_at) >= 0x80) {
        const auto sequence = JSONBytes::utf8Sequence(m_at, m_end);
        if (!sequence.valid) {
            return failRawRun(open);
        }
        m_at += sequence.length;
    }
    return true;
}

/// Raw bytes are judged as UTF-8 where their run ends, so that what ends it has the first word.
bool Scanner::failRawRun(const char* open) {
    while (!atEnd() && *m_at != '"' && *m_at != '\\' && JSONBytes::unsignedByte(m_at) >= 0x20) {
        ++m_at;
    }
    if (atEnd()) {
        return fail(endedInString, open);
    }
    return fail(JSONBytes::unsignedByte(m_at) < 0x20
                    ? controlCharacter
                    : sayLater("a string holds bytes that are not UTF-8"),
                open);
}

} // namespace wendlow::JSONText
