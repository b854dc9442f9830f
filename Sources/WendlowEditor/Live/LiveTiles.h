#pragma once

#include "Live/EditorLink.h"
#include "Live/TileWindow.h"
#include "Store/TileSource.h"

#include <cstddef>
#include <deque>

namespace wendlow {

/// The daemon's thumbnails, fetched one by one behind everything else. May go while its answers are
/// under way; the link must outlive it.
class LiveTiles final : public TileSource {
    Q_OBJECT

public:
    explicit LiveTiles(EditorLink& link);
    ~LiveTiles() override { m_life.end(); }

    const std::map<std::int64_t, EditorTile>& tiles() const override { return m_tiles.tiles(); }
    void showTiles(std::vector<std::int64_t> keys) override;

    /// Those on screen that are still to be fetched.
    std::size_t pendingCount() const { return m_wanted.size(); }
    /// A full load begins: another daemon may have the door that was missing.
    void beginLoad() { m_frameDoorOpen = true; }

private:
    QCoro::Task<> drain();
    QCoro::Task<EditorTile> fetch(std::int64_t key);

    EditorLink& m_link;
    TileWindow m_tiles;
    std::deque<std::int64_t> m_wanted;
    bool m_fetching = false;
    bool m_frameDoorOpen = true;
    Lifetime m_life;
};

} // namespace wendlow
