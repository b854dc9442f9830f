#pragma once

#include "Model/EditorMemory.h"

#include <cstddef>
#include <deque>
#include <memory>

namespace wendlow {

/// The rows of a page. Copies share them, and a page that goes on where another one ends is made by
/// adding to a copy of that: neither then costs anything for the rows that are there. Whoever holds
/// the shorter page does not see what is added. A row is never changed. One thread.
class EditorRows {
    using Rows = std::deque<EditorMemoryHit>; // its rows stay where they are while it grows

public:
    using value_type = EditorMemoryHit;
    using const_reference = const EditorMemoryHit&;
    using const_iterator = Rows::const_iterator;
    using iterator = const_iterator;
    using size_type = std::size_t;
    using difference_type = Rows::difference_type;

    EditorRows() = default;
    EditorRows(EditorMemoryHits rows);

    std::size_t size() const { return m_count; }
    bool empty() const { return m_count == 0; }
    const_iterator begin() const { return m_rows ? m_rows->cbegin() : const_iterator(); }
    const_iterator end() const { return begin() + static_cast<difference_type>(m_count); }
    const EditorMemoryHit& operator[](std::size_t at) const { return (*m_rows)[at]; }
    const EditorMemoryHit& back() const { return (*m_rows)[m_count - 1]; }

    /// Adds a row behind the last. Costs a copy of all only where another page has gone on from
    /// here already.
    void push_back(EditorMemoryHit row);
    /// The first `count` rows; at most all.
    EditorRows first(std::size_t count) const;
    /// Whether the rows of `other`, all of them, are the first ones of this.
    bool beginWith(const EditorRows& other) const;

    bool operator==(const EditorRows& other) const {
        return m_count == other.m_count && beginWith(other);
    }

private:
    std::shared_ptr<Rows> m_rows; ///< may hold more than are of this page
    std::size_t m_count = 0;
};

} // namespace wendlow
