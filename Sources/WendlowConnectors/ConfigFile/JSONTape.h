#pragma once

#include "ConfigFile/ByteRange.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace wendlow {

/// What a scan leaves behind: one row of small entries in document order, instead of a tree of
/// allocations. Private to the scanner and to `JSONNode`.
///
/// A scalar is one entry. A container is an opening entry, then what it contains (of an object: a
/// string entry for the name and the value's entries, in turn), then a closing entry. A string with
/// escapes is followed by one more entry that says where its decoded text lies.
class JSONTape {
public:
    enum class Tag : std::uint8_t {
        object,
        array,
        close,
        string,
        escapedString,
        number,
        trueWord,
        falseWord,
        null,
    };

    explicit JSONTape(std::string_view bytes) : m_bytes(bytes) {}

    // Building.

    void addScalar(Tag tag, std::size_t start, std::size_t end) { add({pack(tag, start), end}); }
    /// `decodedSize` bytes of it were written at `decodedEnd`.
    void addEscapedString(std::size_t start, std::size_t end, std::size_t decodedSize) {
        add({pack(Tag::escapedString, start), end});
        add({m_decodedSize, decodedSize});
        m_decodedSize += decodedSize;
    }
    /// Opens a container and gives its index, for `close`.
    std::size_t open(Tag tag, std::size_t start) {
        add({pack(tag, start), 0});
        return m_size - 1;
    }
    void close(std::size_t opening, std::size_t position, std::size_t count) {
        add({pack(Tag::close, position), count});
        m_entries.get()[opening].link = m_size;
    }
    void addComment(ByteRange range) { m_comments.push_back(range); }
    /// Where the next escaped string's text has to be written. A decoded text is never longer than
    /// its source, so that one allocation, made for the first escape, holds all texts that follow.
    char* decodedEnd(std::size_t sourceLeft) {
        if (!m_decoded) {
            m_decoded = std::make_unique_for_overwrite<char[]>(sourceLeft);
        }
        return m_decoded.get() + m_decodedSize;
    }

    // Reading. An index is that of a value's first entry.

    Tag tag(std::size_t index) const { return static_cast<Tag>(entry(index).startAndTag & 0xF); }
    std::size_t start(std::size_t index) const { return entry(index).startAndTag >> tagBits; }
    std::size_t end(std::size_t index) const {
        return isContainer(index) ? start(entry(index).link - 1) + 1 : entry(index).link;
    }
    /// The index of what follows the value, past all that it contains.
    std::size_t after(std::size_t index) const {
        if (isContainer(index)) {
            return entry(index).link;
        }
        return index + (tag(index) == Tag::escapedString ? 2 : 1);
    }
    std::size_t count(std::size_t index) const {
        return isContainer(index) ? entry(entry(index).link - 1).link : 0;
    }
    bool isContainer(std::size_t index) const { return tag(index) <= Tag::array; }
    /// The decoded text of a string entry.
    std::string_view text(std::size_t index) const {
        if (tag(index) == Tag::escapedString) {
            const Entry& decoded = entry(index + 1);
            return {m_decoded.get() + decoded.startAndTag, decoded.link};
        }
        return m_bytes.substr(start(index) + 1, end(index) - start(index) - 2);
    }
    const std::vector<ByteRange>& comments() const { return m_comments; }

private:
    struct Entry {
        std::uint64_t startAndTag; ///< of decoded text: its offset
        std::uint64_t link; ///< scalar: end; opening: index past the closing; closing: count;
                            ///< decoded text: its length
    };
    struct Free {
        void operator()(Entry* entries) const { std::free(entries); }
    };
    static constexpr unsigned tagBits = 4;

    static std::uint64_t pack(Tag tag, std::size_t start) {
        return std::uint64_t{start} << tagBits | std::to_underlying(tag);
    }
    const Entry& entry(std::size_t index) const { return m_entries.get()[index]; }
    void add(Entry entry) {
        if (m_size == m_capacity) {
            grow();
        }
        m_entries.get()[m_size++] = entry;
    }
    void grow();

    std::string_view m_bytes;
    /// Grown with realloc: large blocks are then moved by the kernel without a copy, so that growth
    /// costs neither time nor a second block's memory.
    std::unique_ptr<Entry[], Free> m_entries;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    std::unique_ptr<char[]> m_decoded;
    std::size_t m_decodedSize = 0;
    std::vector<ByteRange> m_comments;
};

} // namespace wendlow
