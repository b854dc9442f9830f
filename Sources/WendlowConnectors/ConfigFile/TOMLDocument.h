#pragma once

#include "ConfigFile/ByteRange.h"

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// A dotted name as code states it: `{"mcp_servers", "wendlow"}`. Empty: the root table's.
using TOMLName = std::vector<std::string>;

/// A dotted name as a file states it, each segment decoded.
struct TOMLPath {
    std::span<const std::string_view> segments;

    std::size_t size() const { return segments.size(); }
    std::string_view operator[](std::size_t index) const { return segments[index]; }
    auto begin() const { return segments.begin(); }
    auto end() const { return segments.end(); }

    TOMLName name() const { return {begin(), end()}; }
    /// Whether this path is `name` itself or one of its parents; the root is everybody's parent.
    bool leadsTo(const TOMLName& name) const;
    /// Whether this path is longer than `name` and begins with it, as a sub-table's does.
    bool extends(const TOMLName& name) const;
    bool operator==(const TOMLName& name) const;
    bool operator==(const TOMLPath& other) const;
};

/// One header and what follows it. All offsets are bytes from the start of the file.
struct TOMLTable {
    TOMLPath name;
    bool isArrayElement = false; ///< stated as `[[name]]`
    /// Offset of the `[`. The root has no header: where the text begins, behind a byte-order mark.
    std::size_t headerStart = 0;
    std::size_t bodyStart = 0; ///< offset of the first byte after the header line
    /// One past the line of the last entry, or `bodyStart` if there is none. What stands between
    /// there and the next header (blank lines, comments) is no table's and stays in every edit.
    std::size_t bodyEnd = 0;
    ByteRange entries; ///< indices into the document's entries; see `TOMLDocument::entries`
};

/// One key and its value. All offsets are bytes from the start of the file.
struct TOMLEntry {
    TOMLPath key;
    std::size_t keyStart = 0;
    std::size_t valueEnd = 0; ///< one past the value's last byte
    std::size_t lineEnd = 0;  ///< one past the line feed after the value, or the end of the file
    std::string_view raw;     ///< the value's source text; empty where the file has none
    std::optional<std::string_view> text; ///< decoded, if the value is one string and nothing else

    /// Whether the key is the single segment `name`.
    bool isKey(std::string_view name) const { return key.size() == 1 && key[0] == name; }
};

/// A scanned file. Owns the names and decoded strings but not the bytes: those have to outlive it,
/// because names and strings without escapes are views into them. Move-only; what points into it
/// stays valid when it is moved.
class TOMLDocument {
public:
    /// In document order; the root table is always there and always first.
    std::span<const TOMLTable> tables() const { return m_tables; }
    /// The entries that lie in `table`, which is one of `tables()`.
    std::span<const TOMLEntry> entries(const TOMLTable& table) const {
        return std::span(m_entries).subspan(table.entries.lower, table.entries.size());
    }
    /// The first table of exactly that name, array elements included, or null.
    const TOMLTable* table(const TOMLName& name) const;
    /// From each `#` to before its line's end, in document order. A `#` in a string is none.
    std::span<const ByteRange> comments() const { return m_comments; }

private:
    friend class TOMLScanner;

    TOMLDocument() : m_texts(std::make_unique<std::pmr::monotonic_buffer_resource>()) {}

    std::vector<TOMLTable> m_tables;
    std::vector<TOMLEntry> m_entries;
    std::vector<ByteRange> m_comments;
    std::unique_ptr<std::pmr::monotonic_buffer_resource> m_texts; ///< segments and decoded strings
};

} // namespace wendlow
