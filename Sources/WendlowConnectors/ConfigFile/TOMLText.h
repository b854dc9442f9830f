#pragma once

#include "ConfigFile/TOMLDocument.h"
#include "ConfigFile/Unreadable.h"

#include <cstddef>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace wendlow {

/// Why bytes did not read as TOML.
struct TOMLTextError {
    std::size_t offset = 0; ///< of a string: its opening quotation mark
    std::string reason;

    /// The reason and " (at byte N)".
    std::string description() const;
    Unreadable unreadable() const { return {.reason = description(), .byte = offset}; }
    bool operator==(const TOMLTextError&) const = default;
};

/// As much of TOML as it takes to edit a table in a file that somebody else writes in too. Values
/// are walked to their end and not judged: one that reads here may still be refused by the tool
/// whose file it is. Pure functions; any thread.
namespace TOMLText {

/// Scans the whole of `bytes`, which have to outlive the document. One pass, no recursion. A UTF-8
/// byte-order mark at the start is skipped.
std::expected<TOMLDocument, TOMLTextError> scan(std::string_view bytes);

/// `text`, which is UTF-8, as a basic string with its quotation marks.
std::string quote(std::string_view text);

/// A dotted key: each segment as it is where it may stand bare, otherwise quoted.
std::string joined(const TOMLName& name);
std::string joined(const TOMLPath& path);

/// "\r\n" or "\n": the one that an edit of `bytes` has to write.
std::string_view lineEnding(std::string_view bytes);

/// Why a file that scans is nevertheless not fit to be edited at the tables `owned`; nothing if it
/// is. Shapes that concern other tables are no reason.
std::optional<Unreadable> unreadableReason(const TOMLDocument& document,
                                           std::span<const TOMLName> owned);

} // namespace TOMLText
} // namespace wendlow
