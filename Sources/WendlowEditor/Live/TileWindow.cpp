#include "Live/TileWindow.h"

#include <utility>

namespace wendlow {

void TileWindow::remember(std::int64_t key, EditorTile tile) {
    if (m_tiles.insert_or_assign(key, std::move(tile)).second)
        m_order.push_back(key);
    while (m_order.size() > most) {
        m_tiles.erase(m_order.front());
        m_order.pop_front();
    }
}

} // namespace wendlow
