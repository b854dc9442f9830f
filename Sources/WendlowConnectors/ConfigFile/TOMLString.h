#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

namespace wendlow {

/// Reads one string of any of the four kinds and decodes it.
class TOMLString {
public:
    enum class Place {
        key,   ///< on one line: three quotation marks are an empty string and something after it
        value, ///< three quotation marks open a string of several lines
    };
    struct Text {
        std::size_t end = 0;    ///< offset one past the closing quotation mark
        std::string_view text;  ///< a view into the bytes, or into `decoded`
        bool isDecoded = false; ///< `text` is in `decoded`, because the source differs from it
    };

    /// `start` is the offset of a quotation mark in `bytes`. `decoded` is scratch space. Fails with
    /// a reason, which is a marked sentence; whatever the fault, the offset to tell is `start`.
    static std::expected<Text, const char*> read(std::string_view bytes, std::size_t start,
                                                 Place place, std::string& decoded);

private:
    using Reason = const char*; ///< null: nothing is wrong

    TOMLString(std::string_view bytes, std::size_t start, Place place, std::string& decoded);

    Reason readToEnd();
    Reason readCharacter();
    Reason readEscape();
    Reason readHexEscape(std::size_t digits);
    Reason readLineBreak();
    bool closes();
    void skipFoldedLines();
    void flush();
    Text text();

    std::string_view m_bytes;
    std::size_t m_position;
    std::size_t m_runStart;   ///< of the bytes that are not in `m_decoded` yet
    std::size_t m_runEnd = 0; ///< set when the string closed
    char m_quote;
    bool m_isMultiline = false;
    bool m_isDecoded = false;
    std::string& m_decoded;
};

} // namespace wendlow
