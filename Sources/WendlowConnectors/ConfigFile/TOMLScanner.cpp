#include "ConfigFile/TOMLScanner.h"

#include "ConfigFile/TOMLBytes.h"
#include "Say.h"

#include <algorithm>

namespace wendlow {

namespace {

/// Whether `text` begins as `shape` does, where each `0` of the shape is any digit.
bool hasShape(std::string_view text, std::string_view shape) {
    return text.size() >= shape.size() &&
           std::ranges::equal(text.substr(0, shape.size()), shape, [](char byte, char wanted) {
               return wanted == '0' ? byte >= '0' && byte <= '9' : byte == wanted;
           });
}

} // namespace

std::expected<TOMLDocument, TOMLTextError> TOMLText::scan(std::string_view bytes) {
    return TOMLScanner(bytes).scan();
}

TOMLScanner::TOMLScanner(std::string_view bytes)
    : m_bytes(bytes), m_position(TOMLBytes::textStart(bytes)) {}

std::expected<TOMLDocument, TOMLTextError> TOMLScanner::scan() {
    constexpr std::size_t usualEntrySize = 48;
    m_document.m_entries.reserve(m_bytes.size() / usualEntrySize);
    m_document.m_tables.reserve(m_bytes.size() / (2 * usualEntrySize));
    TOMLTable root;
    root.headerStart = m_position;
    openTable(root);
    while (!atEnd()) {
        if (!scanLine())
            return std::unexpected(std::move(m_error));
    }
    return std::move(m_document);
}

bool TOMLScanner::scanLine() {
    m_position = TOMLBytes::skipBlanks(m_bytes, m_position);
    if (atEnd())
        return true;
    switch (m_bytes[m_position]) {
    case '\r':
    case '\n':
        if (const auto length = TOMLBytes::lineBreakLength(m_bytes, m_position)) {
            m_position += length;
            return true;
        }
        return scanEntry();
    case '#':
        return consumeTail();
    case '[':
        return scanHeader();
    default:
        return scanEntry();
    }
}

bool TOMLScanner::scanHeader() {
    TOMLTable table;
    table.headerStart = m_position;
    ++m_position;
    table.isArrayElement = isAt('[');
    if (table.isArrayElement)
        ++m_position;
    if (!scanKey())
        return false;
    for (int closers = table.isArrayElement ? 2 : 1; closers > 0; --closers, ++m_position) {
        if (!isAt(']'))
            return fail(m_position, sayLater("a table header did not close"));
    }
    if (!consumeTail())
        return false;
    table.name = keepSegments();
    openTable(table);
    return true;
}

bool TOMLScanner::scanEntry() {
    TOMLEntry entry;
    entry.keyStart = m_position;
    if (!scanKey())
        return false;
    if (atEnd())
        return fail(m_position, sayLater("the file ended inside a key"));
    if (!isAt('='))
        return fail(m_position, sayLater("a key held a character that is not allowed in one"));
    entry.key = keepSegments();
    m_position = TOMLBytes::skipBlanks(m_bytes, m_position + 1);
    if (!consumeValue(entry) || !consumeTail())
        return false;
    entry.lineEnd = m_position;
    m_document.m_entries.push_back(entry);
    auto& table = m_document.m_tables.back();
    table.bodyEnd = m_position;
    ++table.entries.upper;
    return true;
}

/// Reads a dotted key and the blanks behind it.
bool TOMLScanner::scanKey() {
    m_segments.clear();
    for (;;) {
        m_position = TOMLBytes::skipBlanks(m_bytes, m_position);
        if (!scanSegment())
            return false;
        m_position = TOMLBytes::skipBlanks(m_bytes, m_position);
        if (!isAt('.'))
            return true;
        ++m_position;
    }
}

bool TOMLScanner::scanSegment() {
    if (atEnd())
        return fail(m_position, sayLater("the file ended inside a key"));
    const char first = m_bytes[m_position];
    if (first == '"' || first == '\'') {
        const auto string =
            TOMLString::read(m_bytes, m_position, TOMLString::Place::key, m_decoded);
        if (!string)
            return fail(m_position, string.error());
        m_segments.push_back(keepText(*string));
        m_position = string->end;
        return true;
    }
    const auto end = TOMLBytes::skip(TOMLBytes::bareKey, m_bytes, m_position);
    if (end == m_position) {
        const bool isMissing = std::string_view(".=]\r\n").contains(first);
        return fail(m_position,
                    isMissing ? sayLater("a key was expected")
                              : sayLater("a key held a character that is not allowed in one"));
    }
    m_segments.push_back(m_bytes.substr(m_position, end - m_position));
    m_position = end;
    return true;
}

/// Reads what may follow a header or a value up to and with the line's end.
bool TOMLScanner::consumeTail() {
    m_position = TOMLBytes::skipBlanks(m_bytes, m_position);
    if (isAt('#'))
        consumeComment();
    if (atEnd())
        return true;
    const auto length = TOMLBytes::lineBreakLength(m_bytes, m_position);
    if (length == 0)
        return fail(m_position, sayLater("there are bytes after the end of a value"));
    m_position += length;
    return true;
}

/// Walks over a value. What the words in it say and whether the brackets match is the business of
/// the tool that reads the file.
bool TOMLScanner::consumeValue(TOMLEntry& entry) {
    const auto start = m_position;
    std::size_t depth = 0;
    std::size_t textEnd = start;
    for (bool isInside = true; isInside;) {
        m_position = TOMLBytes::find(depth == 0 ? TOMLBytes::endsPlainWord : TOMLBytes::inBrackets,
                                     m_bytes, m_position);
        switch (atEnd() ? '\n' : m_bytes[m_position]) {
        case '"':
        case '\'': {
            const auto string =
                TOMLString::read(m_bytes, m_position, TOMLString::Place::value, m_decoded);
            if (!string)
                return fail(m_position, string.error());
            if (m_position == start) {
                entry.text = keepText(*string);
                textEnd = string->end;
            }
            m_position = string->end;
            break;
        }
        case '[':
        case '{':
            ++depth;
            ++m_position;
            break;
        case ']':
        case '}':
            if (depth == 0)
                return fail(m_position, sayLater("a value closed a bracket it never opened"));
            --depth;
            ++m_position;
            break;
        case '#':
            isInside = depth > 0;
            if (isInside)
                consumeComment();
            break;
        default: // white space outside brackets, or the end of the file
            isInside = !atEnd() && isDateTimeSeparator(start);
            if (isInside)
                ++m_position;
            break;
        }
    }
    if (depth > 0)
        return fail(start, sayLater("a value was left open at the end of the file"));
    if (m_position != textEnd)
        entry.text.reset();
    entry.valueEnd = m_position;
    entry.raw = m_bytes.substr(start, m_position - start);
    return true;
}

/// Whether the blank at the position joins the date that began at `valueStart` to a time.
bool TOMLScanner::isDateTimeSeparator(std::size_t valueStart) const {
    constexpr std::string_view date = "0000-00-00";
    return m_bytes[m_position] == ' ' && m_position - valueStart == date.size() &&
           hasShape(m_bytes.substr(valueStart), date) &&
           hasShape(m_bytes.substr(m_position + 1), "00:00");
}

void TOMLScanner::consumeComment() {
    auto end = std::min(m_bytes.find('\n', m_position), m_bytes.size());
    if (end < m_bytes.size() && m_bytes[end - 1] == '\r')
        --end;
    m_document.m_comments.push_back({m_position, end});
    m_position = end;
}

/// Begins the body of `table` at the position.
void TOMLScanner::openTable(TOMLTable table) {
    table.bodyStart = table.bodyEnd = m_position;
    table.entries.lower = table.entries.upper = m_document.m_entries.size();
    m_document.m_tables.push_back(table);
}

TOMLPath TOMLScanner::keepSegments() {
    std::pmr::polymorphic_allocator<std::string_view> allocator(m_document.m_texts.get());
    const auto kept = allocator.allocate(m_segments.size());
    std::uninitialized_copy(m_segments.begin(), m_segments.end(), kept);
    return {{kept, m_segments.size()}};
}

std::string_view TOMLScanner::keepText(const TOMLString::Text& string) {
    if (!string.isDecoded)
        return string.text;
    std::pmr::polymorphic_allocator<char> allocator(m_document.m_texts.get());
    const auto kept = allocator.allocate(string.text.size());
    std::ranges::copy(string.text, kept);
    return {kept, string.text.size()};
}

bool TOMLScanner::fail(std::size_t offset, const char* reason) {
    m_error = {offset, say(reason)};
    return false;
}

} // namespace wendlow
