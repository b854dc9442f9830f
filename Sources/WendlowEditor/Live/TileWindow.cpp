#include "Live/TileWindow.h"

#include <utility>

namespace wendlow {

namespace {

std::size_t bytes(const EditorTile& tile) {
    return tile.image ? tile.image->size() : 0;
}

} // namespace

void TileWindow::remember(std::int64_t key, EditorTile tile) {
    m_bytes += bytes(tile);
    const auto [place, isNew] = m_tiles.try_emplace(key);
    m_bytes -= bytes(place->second);
    place->second = std::move(tile);
    if (isNew)
        m_order.push_back(key);
    while (m_order.size() > most || (m_bytes > mostBytes && m_order.size() > 1)) {
        const auto oldest = m_tiles.find(m_order.front());
        m_bytes -= bytes(oldest->second);
        m_tiles.erase(oldest);
        m_order.pop_front();
    }
}

} // namespace wendlow
