#pragma once

#include "Model/EditorMoment.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>

namespace wendlow {

/// The thumbnails that are kept: the last to arrive, a fixed number of them, and fewer where they
/// are large.
class TileWindow {
public:
    static constexpr std::size_t most = 600;
    static constexpr std::size_t mostBytes = std::size_t{64} << 20U;

    const std::map<std::int64_t, EditorTile>& tiles() const { return m_tiles; }
    bool holds(std::int64_t key) const { return m_tiles.contains(key); }
    /// Keeps a tile; one that was here already keeps its place.
    void remember(std::int64_t key, EditorTile tile);

private:
    std::map<std::int64_t, EditorTile> m_tiles;
    std::deque<std::int64_t> m_order; ///< of arrival
    std::size_t m_bytes = 0;
};

} // namespace wendlow
