#pragma once

#include "ConfigFile/ByteRange.h"
#include "ConfigFile/JSONNode.h"
#include "ConfigFile/Unreadable.h"

#include <cstddef>
#include <expected>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

class JSONTape;

enum class JSONDialect {
    json, ///< strict: a `/` outside a string is an error
    /// Strict, plus `//` and `/* */` wherever white space may stand, and a comma behind the last
    /// member or element.
    jsonWithComments,
};

/// Why bytes did not read as JSON.
struct JSONTextError {
    std::size_t offset = 0;
    std::string reason;

    /// The reason and " (at byte N)".
    std::string description() const;
    Unreadable unreadable() const { return {.reason = description(), .byte = offset}; }
    bool operator==(const JSONTextError&) const = default;
};

/// A scanned document. Owns the nodes, not the bytes: those have to outlive it. Move-only; nodes
/// stay valid when it is moved.
class JSONDocument {
public:
    /// Takes over what a scan left behind; for `scanWithTrivia`.
    explicit JSONDocument(std::unique_ptr<const JSONTape> tape);
    JSONDocument(JSONDocument&&) noexcept;
    JSONDocument& operator=(JSONDocument&&) noexcept;
    ~JSONDocument();

    JSONNode root() const;
    /// The comments in document order; always empty in dialect `json`.
    std::span<const ByteRange> comments() const;

private:
    std::unique_ptr<const JSONTape> m_tape;
};

namespace JSONText {

/// Scans the whole of `bytes`. One pass, no recursion deeper than 64 containers. Pure; any thread.
/// A byte-order mark is not JSON and fails.
std::expected<JSONDocument, JSONTextError> scanWithTrivia(std::string_view bytes,
                                                          JSONDialect dialect);

/// The four bytes that are white space to JSON, and to every edit.
constexpr bool isWhitespace(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
}

} // namespace JSONText
} // namespace wendlow
