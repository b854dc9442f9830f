#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace wendlow {

/// The rows of a page. Copies share them, and a page that goes on where another one ends is made by
/// adding to a copy of that: neither then costs anything for the rows that are there. Whoever holds
/// the shorter page does not see what is added. A row is never changed. One thread.
template<class Row> class SharedRows {
    using Rows = std::deque<Row>; // its rows stay where they are while it grows

public:
    using value_type = Row;
    using const_reference = const Row&;
    using const_iterator = typename Rows::const_iterator;
    using iterator = const_iterator;
    using size_type = std::size_t;
    using difference_type = typename Rows::difference_type;

    SharedRows() = default;
    SharedRows(std::vector<Row> rows)
        : m_rows(std::make_shared<Rows>(std::make_move_iterator(rows.begin()),
                                        std::make_move_iterator(rows.end()))),
          m_count(rows.size()) {}
    SharedRows(std::initializer_list<Row> rows) : SharedRows(std::vector<Row>(rows)) {}

    std::size_t size() const { return m_count; }
    bool empty() const { return m_count == 0; }
    const_iterator begin() const { return m_rows ? m_rows->cbegin() : const_iterator(); }
    const_iterator end() const { return begin() + static_cast<difference_type>(m_count); }
    const Row& operator[](std::size_t at) const { return (*m_rows)[at]; }
    const Row& back() const { return (*m_rows)[m_count - 1]; }

    /// Adds a row behind the last. Costs a copy of all only where another page has gone on from
    /// here already.
    void push_back(Row row) {
        if (!m_rows || m_rows->size() != m_count)
            m_rows = std::make_shared<Rows>(begin(), end());
        m_rows->push_back(std::move(row));
        ++m_count;
    }
    /// The first `count` rows; at most all.
    SharedRows first(std::size_t count) const {
        SharedRows rows = *this;
        rows.m_count = std::min(count, m_count);
        return rows;
    }
    /// How many of the first rows both have in common for being the same rows, without a look at
    /// any.
    std::size_t shared(const SharedRows& other) const {
        return m_rows == other.m_rows ? std::min(m_count, other.m_count) : 0;
    }
    /// Whether the rows of `other`, all of them, are the first ones of this.
    bool beginWith(const SharedRows& other) const {
        if (other.m_count > m_count)
            return false;
        return m_rows == other.m_rows || std::equal(other.begin(), other.end(), begin());
    }

    bool operator==(const SharedRows& other) const {
        return m_count == other.m_count && beginWith(other);
    }

private:
    std::shared_ptr<Rows> m_rows; ///< may hold more than are of this page
    std::size_t m_count = 0;
};

} // namespace wendlow
