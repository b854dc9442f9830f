#pragma once

#include "ConfigFile/TOMLString.h"
#include "ConfigFile/TOMLText.h"

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// One scan: the position in the bytes and the document so far. Every step leaves the position
/// behind what it read, or gives false with the error set.
class TOMLScanner {
public:
    explicit TOMLScanner(std::string_view bytes);

    std::expected<TOMLDocument, TOMLTextError> scan();

private:
    bool scanLine();
    bool scanHeader();
    bool scanEntry();
    bool scanKey();
    bool scanSegment();
    bool consumeTail();

    bool consumeValue(TOMLEntry& entry);
    bool consumeBrackets(std::size_t valueStart);
    bool consumeString(TOMLEntry& entry);
    bool isDateTimeSeparator(std::size_t valueStart) const;

    void consumeComment();
    void openTable(TOMLTable table);
    TOMLPath keepSegments();
    std::string_view keepText(const TOMLString::Text& string);

    bool fail(std::size_t offset, const char* reason); ///< a marked sentence
    bool atEnd() const { return m_position == m_bytes.size(); }
    bool isAt(char byte) const { return !atEnd() && m_bytes[m_position] == byte; }

    std::string_view m_bytes;
    std::size_t m_position;
    TOMLDocument m_document;
    std::vector<std::string_view> m_segments; ///< of the key last scanned
    std::string m_decoded;                    ///< of the string last scanned
    TOMLTextError m_error;
};

} // namespace wendlow
