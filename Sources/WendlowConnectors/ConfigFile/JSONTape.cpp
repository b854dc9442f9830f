#include "ConfigFile/JSONTape.h"

#include <algorithm>
#include <new>

namespace wendlow {

void JSONTape::grow() {
    // The first guess suits a file of long lines; growth by half keeps the unused part small.
    const auto capacity =
        std::max(m_capacity + m_capacity / 2, std::max<std::size_t>(32, m_bytes.size() / 64));
    // NOLINTNEXTLINE(bugprone-suspicious-realloc-usage): the old block is released on success only
    auto* entries = static_cast<Entry*>(std::realloc(m_entries.get(), capacity * sizeof(Entry)));
    if (entries == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(m_entries.release());
    m_entries.reset(entries);
    m_capacity = capacity;
}

} // namespace wendlow
