#pragma once

#include "ConfigFile/JSONTape.h"
#include "ConfigFile/JSONText.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace wendlow::JSONText {

/// The working object of one scan. Each operation begins at the position, leaves it after what it
/// read, and gives false once the scan has failed; the first failure is the one that is kept.
///
/// Never reads outside the bytes: they need no terminator and no padding.
class Scanner {
public:
    Scanner(std::string_view bytes, JSONDialect dialect, JSONTape& tape)
        : m_begin(bytes.data()), m_at(m_begin), m_end(m_begin + bytes.size()), m_dialect(dialect),
          m_tape(tape) {}

    /// Scans the whole document onto the tape; the failure, if it failed.
    std::optional<JSONTextError> scan();

private:
    struct Failure {
        const char* reason = nullptr; ///< a marked sentence
        const char* at = nullptr;
    };

    bool skipTrivia();
    bool skipComments();
    bool parseValue();
    bool parseLiteral(std::string_view word, JSONTape::Tag kind);
    bool parseNumber();
    bool skipDigits();
    bool enter();
    bool parseObject();
    bool parseMember();
    bool parseArray();
    bool isClosedBehindComma(char bracket);
    bool parseString();
    bool skipEscape(const char* open);
    bool skipNonASCII(const char* open);
    bool failRawRun(const char* open);

    std::size_t offset(const char* at) const { return static_cast<std::size_t>(at - m_begin); }
    bool atEnd() const { return m_at == m_end; }
    bool fail(const char* reason, const char* at) {
        m_failure = {reason, at};
        return false;
    }

    const char* m_begin;
    const char* m_at; ///< the position
    const char* m_end;
    JSONDialect m_dialect;
    JSONTape& m_tape;
    int m_depth = 0;
    Failure m_failure;
};

} // namespace wendlow::JSONText
