#pragma once

#include "ConfigFile/ByteRange.h"
#include "ConfigFile/JSONStep.h"
#include "ConfigFile/JSONTape.h"
#include "ConfigFile/JSONValue.h"

#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>

namespace wendlow {

/// One scanned value: a byte range of the document, what kind of value it is, and the way to what
/// it contains.
///
/// A node is a handle, cheap to copy. It points into the `JSONDocument` that scanned it, and its
/// texts may be views into the scanned bytes: both have to outlive it.
class JSONNode {
public:
    enum class Kind { object, array, string, boolean, number, null };

    struct Member;
    class MemberRange;  ///< forward range of `Member`, document order, duplicates kept
    class ElementRange; ///< forward range of `JSONNode`, document order

    Kind kind() const;
    std::size_t start() const; ///< offset of the first byte: opening quote, bracket, digit, letter
    std::size_t end() const;   ///< offset one past the last byte; never includes trivia
    ByteRange range() const { return {start(), end()}; }

    bool isObject() const { return kind() == Kind::object; }
    bool isArray() const { return kind() == Kind::array; }

    MemberRange members() const;   ///< empty unless this is an object
    ElementRange elements() const; ///< empty unless this is an array
    std::size_t count() const;     ///< members or elements; walks them; 0 for anything else

    /// The decoded text of a string, or nothing for any other kind.
    std::optional<std::string_view> string() const;
    /// The value of `true` or `false`, or nothing for any other kind.
    std::optional<bool> boolean() const;

    /// The first member whose key equals `key`, as a value; nothing if there is none or if this is
    /// not an object. Keys are compared byte by byte.
    std::optional<JSONNode> member(std::string_view key) const;
    /// Walks `path` from here. Nothing where a step meets the wrong kind, an absent key or an index
    /// out of bounds; the empty path is this node.
    std::optional<JSONNode> node(const JSONPath& path) const;
    /// The plain view. `bytes` is what was scanned: a number is its source text. Of duplicate keys
    /// the last wins here, while `member` and `node` take the first: the editor addresses the first
    /// occurrence, and this view reads as the tool that owns the file would.
    JSONValue value(std::string_view bytes) const;

private:
    friend class JSONDocument;
    JSONNode(const JSONTape* tape, std::size_t index) : m_tape(tape), m_index(index) {}

    std::optional<JSONNode> element(std::ptrdiff_t index) const;

    const JSONTape* m_tape;
    std::size_t m_index; ///< of the value's first entry on the tape
};

struct JSONNode::Member {
    std::string_view key; ///< decoded
    std::size_t keyStart; ///< offset of the name's opening quote
    JSONNode value;
};

class JSONNode::MemberRange {
public:
    class iterator {
    public:
        using value_type = Member;
        using difference_type = std::ptrdiff_t;

        iterator() = default;
        Member operator*() const;
        iterator& operator++();
        iterator operator++(int) {
            auto before = *this;
            ++*this;
            return before;
        }
        bool operator==(const iterator&) const = default;

    private:
        friend class MemberRange;
        iterator(const JSONTape* tape, std::size_t index) : m_tape(tape), m_index(index) {}

        const JSONTape* m_tape = nullptr;
        std::size_t m_index = 0; ///< of the name
    };

    iterator begin() const { return m_begin; }
    iterator end() const { return m_end; }
    bool empty() const { return m_begin == m_end; }

private:
    friend class JSONNode;
    MemberRange(const JSONTape* tape, std::size_t begin, std::size_t end)
        : m_begin(tape, begin), m_end(tape, end) {}

    iterator m_begin;
    iterator m_end;
};

class JSONNode::ElementRange {
public:
    class iterator {
    public:
        using value_type = JSONNode;
        using difference_type = std::ptrdiff_t;

        iterator() = default;
        JSONNode operator*() const { return {m_tape, m_index}; }
        iterator& operator++();
        iterator operator++(int) {
            auto before = *this;
            ++*this;
            return before;
        }
        bool operator==(const iterator&) const = default;

    private:
        friend class ElementRange;
        iterator(const JSONTape* tape, std::size_t index) : m_tape(tape), m_index(index) {}

        const JSONTape* m_tape = nullptr;
        std::size_t m_index = 0;
    };

    iterator begin() const { return m_begin; }
    iterator end() const { return m_end; }
    bool empty() const { return m_begin == m_end; }

private:
    friend class JSONNode;
    ElementRange(const JSONTape* tape, std::size_t begin, std::size_t end)
        : m_begin(tape, begin), m_end(tape, end) {}

    iterator m_begin;
    iterator m_end;
};

inline JSONNode::Member JSONNode::MemberRange::iterator::operator*() const {
    return {.key = m_tape->text(m_index),
            .keyStart = m_tape->start(m_index),
            .value = JSONNode(m_tape, m_tape->after(m_index))};
}

inline JSONNode::MemberRange::iterator& JSONNode::MemberRange::iterator::operator++() {
    m_index = m_tape->after(m_tape->after(m_index));
    return *this;
}

inline JSONNode::ElementRange::iterator& JSONNode::ElementRange::iterator::operator++() {
    m_index = m_tape->after(m_index);
    return *this;
}

} // namespace wendlow
