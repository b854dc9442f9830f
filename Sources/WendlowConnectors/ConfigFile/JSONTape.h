#pragma once

#include "ConfigFile/ByteRange.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace wendlow {

/// What a scan leaves behind: one row of words in document order, instead of a tree of
/// allocations. Private to the scanner and to `JSONNode`.
///
/// A word is an offset, what begins there, and how long it is. A scalar is one word; where one is
/// too long for its word, the few who ask read its end from the bytes again, which are known to be
/// sound. A container is a word, a link past its end, then what it contains (of an object: the word
/// of a name and the value's words, in turn), then the word of its closing bracket. The text of a
/// string with escapes is decoded when it is first asked for.
class JSONTape {
public:
    enum class Tag : std::uint8_t {
        object,
        array,
        close,
        string,
        escapedString,
        number,
        trueLiteral,
        falseLiteral,
        null,
    };

    /// What is longer has offsets that no word holds.
    static constexpr std::size_t longestText = std::size_t{1} << 40;

    explicit JSONTape(std::string_view bytes) : m_bytes(bytes) {}

    // Building.

    void addScalar(Tag tag, std::size_t start, std::size_t length) {
        add(pack(tag, start) | std::min(Word{length}, uncounted) << tagBits);
    }
    /// Opens a container and gives its index, for `close`.
    std::size_t open(Tag tag, std::size_t start) {
        add(pack(tag, start));
        add(0);
        return m_size - 2;
    }
    void close(std::size_t opening, std::size_t position) {
        add(pack(Tag::close, position));
        m_words.get()[opening + 1] = m_size;
    }
    void addComment(ByteRange range) { m_comments.push_back(range); }

    // Reading. An index is that of a value's or a name's first word.

    Tag tag(std::size_t index) const { return static_cast<Tag>(word(index) & tagMask); }
    bool isContainer(std::size_t index) const { return tag(index) <= Tag::array; }
    std::size_t start(std::size_t index) const { return word(index) >> startShift; }
    std::size_t end(std::size_t index) const {
        if (isContainer(index))
            return start(endInside(index)) + 1;
        const Word length = word(index) >> tagBits & uncounted;
        return length == uncounted ? readEnd(index) : start(index) + length;
    }
    /// The index of what follows, past all that a container contains.
    std::size_t after(std::size_t index) const {
        return isContainer(index) ? word(index + 1) : index + 1;
    }
    /// The indices of what a container contains.
    std::size_t firstInside(std::size_t index) const { return index + 2; }
    std::size_t endInside(std::size_t index) const { return after(index) - 1; }
    /// The text of a string: a view into the bytes unless it has escapes. What was decoded once is
    /// kept, so that the view holds as long as the tape does.
    std::string_view text(std::size_t index) const {
        const auto first = start(index) + 1;
        const auto body = m_bytes.substr(first, end(index) - 1 - first);
        return tag(index) == Tag::string ? body : decoded(index, body);
    }
    const std::vector<ByteRange>& comments() const { return m_comments; }

private:
    using Word = std::uint64_t;
    struct Free {
        void operator()(Word* words) const { std::free(words); }
    };
    static constexpr unsigned tagBits = 4;
    static constexpr unsigned lengthBits = 20;
    static constexpr unsigned startShift = tagBits + lengthBits;
    static constexpr Word tagMask = (1U << tagBits) - 1;
    static constexpr Word uncounted = (1U << lengthBits) - 1; ///< the length of what is too long

    static Word pack(Tag tag, std::size_t start) {
        return Word{start} << startShift | std::to_underlying(tag);
    }
    Word word(std::size_t index) const { return m_words.get()[index]; }
    void add(Word word) {
        if (m_size == m_capacity) {
            grow();
        }
        m_words.get()[m_size++] = word;
    }
    void grow();
    std::size_t readEnd(std::size_t index) const;
    std::string_view decoded(std::size_t index, std::string_view body) const;

    std::string_view m_bytes;
    /// Grown with realloc: large blocks are then moved by the kernel without a copy, so that growth
    /// costs neither time nor a second block's memory.
    std::unique_ptr<Word[], Free> m_words;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    std::vector<ByteRange> m_comments;
    /// Texts that had escapes and were asked for, by index. Readers on several threads share it.
    mutable std::mutex m_decodedMutex;
    mutable std::unordered_map<std::size_t, std::string> m_decoded;
};

} // namespace wendlow
