#include "Model/EditorRows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wendlow {

EditorRows::EditorRows(EditorMemoryHits rows)
    : m_rows(std::make_shared<Rows>(std::make_move_iterator(rows.begin()),
                                    std::make_move_iterator(rows.end()))),
      m_count(rows.size()) {}

void EditorRows::push_back(EditorMemoryHit row) {
    if (!m_rows || m_rows->size() != m_count)
        m_rows = std::make_shared<Rows>(begin(), end());
    m_rows->push_back(std::move(row));
    ++m_count;
}

EditorRows EditorRows::first(std::size_t count) const {
    EditorRows rows = *this;
    rows.m_count = std::min(count, m_count);
    return rows;
}

bool EditorRows::beginWith(const EditorRows& other) const {
    if (other.m_count > m_count)
        return false;
    return m_rows == other.m_rows || std::equal(other.begin(), other.end(), begin());
}

} // namespace wendlow
