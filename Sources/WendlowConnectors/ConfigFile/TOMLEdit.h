#pragma once

#include "ConfigFile/TOMLText.h"

#include <cstddef>
#include <expected>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace wendlow {

/// Why a table could not be edited.
struct TOMLEditError {
    enum class Kind { noSuchTable };

    Kind kind = Kind::noSuchTable;
    TOMLName name;

    std::string description() const;
    bool operator==(const TOMLEditError&) const = default;
};

/// An edit fails because the bytes are not TOML or because there is no such table.
using TOMLEditFailure = std::variant<TOMLTextError, TOMLEditError>;

/// The failure as a sentence without its file.
std::string description(const TOMLEditFailure& failure);

/// Pure functions from bytes to bytes. The result of each equals the input with exactly one
/// contiguous range replaced. None of them asks whether the file is fit to be edited at that
/// table: that is `TOMLText::unreadableReason`'s to say, before.
namespace TOMLEdit {

/// A line to write.
struct Line {
    std::string key;   ///< one segment; quoted if it has to be
    std::string value; ///< TOML text
};

struct SetTable {
    std::string bytes;
    bool created = false;                 ///< the table is new
    bool appendedTrailingNewline = false; ///< the file did not end in a line feed, and now does
};

struct SetKey {
    std::string bytes;
    bool appendedTrailingNewline = false; ///< the file did not end in a line feed, and now does
};

/// Makes `lines` the whole body of the table: a new one at the end of the file behind one blank
/// line, or in place of every entry of the present one, the comments between its entries included
/// (those below its last entry stay). Fails with `noSuchTable` for the root's empty name.
std::expected<SetTable, TOMLEditFailure> setTable(std::string_view bytes, const TOMLName& name,
                                                  std::span<const Line> lines);

/// Sets or adds one key of `table`, which holds `entries`; both are of the scan of these `bytes`.
/// What else stands on a present key's line stays.
SetKey setKey(std::string_view bytes, const TOMLTable& table, std::span<const TOMLEntry> entries,
              std::string_view key, std::string_view value);

/// Removes the lines of one entry of the scan of these `bytes`.
std::string removeKey(std::string_view bytes, const TOMLEntry& entry);

/// Removes header and body of the first table named so, with at most one blank line above it, or
/// below it if it was the first thing in the file. Tables under it are tables of their own.
std::expected<std::string, TOMLEditFailure> removeTable(std::string_view bytes,
                                                        const TOMLName& name);

/// Where the line of `offset` starts, or the line above it if that holds only white space.
std::size_t startOfOneBlankLine(std::string_view bytes, std::size_t offset);

/// One past the line that starts at `offset` if it holds only spaces and tabs, else `offset`.
std::size_t endOfOneBlankLine(std::string_view bytes, std::size_t offset);

} // namespace TOMLEdit
} // namespace wendlow
