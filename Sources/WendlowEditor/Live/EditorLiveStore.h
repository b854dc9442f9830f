#pragma once

#include "Live/EditorLink.h"
#include "Live/LiveMeetings.h"
#include "Live/LiveMods.h"
#include "Live/LivePages.h"
#include "Live/LiveRules.h"
#include "Live/LiveScopes.h"
#include "Live/LiveTiles.h"

#include <memory>
#include <string>

namespace wendlow {

/// The store behind "My real data": the daemon's, through the gateway. A link, and a room over it
/// for each kind of thing; what concerns all of them is here. May go while answers are under way.
class EditorLiveStore final : public EditorStore {
    Q_OBJECT

public:
    using Note = EditorLink::Note;

    explicit EditorLiveStore(std::shared_ptr<WendlowClient> client, Note note = {},
                             EditorLink::Clock clock = std::chrono::steady_clock::now);
    ~EditorLiveStore() override;

    /// The first read, and every full reload. While one runs, any number of calls come to one more.
    QCoro::Task<> load();
    /// Loads when control is back in the event loop: what is asked until then goes out first.
    void loadSoon();
    bool loaded() const { return m_loaded; }
    /// Thumbnails that are on screen and still to be fetched.
    std::size_t pendingTileCount() const { return m_tiles.pendingCount(); }

    EditorWorld world() const override { return EditorWorld::realData; }
    std::int64_t generation() const override { return m_generation; }
    std::optional<std::string> storeError() const override { return m_loadError; }
    bool loading() const override { return m_loading || m_due; }
    LivePages& pages() override { return m_pages; }
    LiveMeetings& meetings() override { return m_meetings; }
    LiveMods& mods() override { return m_mods; }
    LiveScopes& scopes() override { return m_scopes; }
    LiveRules& rules() override { return m_rules; }
    LiveTiles& tiles() override { return m_tiles; }
    void switchWorld(EditorWorld /*world*/) override {}
    void resetWorld() override;
    void lookAgain() override;
    void stopWaiting() override { m_link.abandon(); }

private:
    class OpenSteps;

    QCoro::Task<> loadOnce();
    QCoro::Task<> look();
    void settleLoad(const EditorAnswer& baseline, LiveScopes::Reading scopes);
    LiveTell teller();

    std::int64_t m_generation = 0;
    bool m_loaded = false;
    std::optional<std::string> m_loadError;
    bool m_due = false;          ///< a load comes as soon as control is back in the event loop
    bool m_loading = false;      ///< a load is under way
    bool m_loadAgain = false;    ///< and there will be one more
    bool m_baselineRead = false; ///< by the load that is under way
    bool m_looking = false;

    Lifetime m_life;
    // In this order: a room goes before what it stands on, and who still waits for the link then
    // finds it gone.
    EditorLink m_link;
    LivePages m_pages;
    LiveMeetings m_meetings;
    LiveMods m_mods;
    LiveScopes m_scopes;
    LiveRules m_rules;
    LiveTiles m_tiles;
};

} // namespace wendlow
