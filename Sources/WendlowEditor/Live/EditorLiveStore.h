#pragma once

#include "Live/EditorBrowses.h"
#include "Live/EditorLink.h"
#include "Live/Lifetime.h"
#include "Live/TileWindow.h"
#include "Store/EditorStore.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace wendlow {

/// The store behind "My real data": the daemon's, through the gateway. May go while its answers are
/// under way.
class EditorLiveStore final : public EditorStore {
    Q_OBJECT

public:
    /// Hands a line to the daemon's log; whether it arrives is nobody's concern.
    using Note = std::function<void(std::string line)>;

    explicit EditorLiveStore(std::shared_ptr<WendlowClient> client, Note note = {},
                             EditorLink::Clock clock = std::chrono::steady_clock::now);
    ~EditorLiveStore() override;

    /// The first read, and every full reload. While one runs, any number of calls come to one more.
    QCoro::Task<> load();
    bool loaded() const { return m_loaded; }
    /// Thumbnails that are on screen and still to be fetched.
    std::size_t pendingTileCount() const { return m_wanted.size(); }

    EditorWorld world() const override { return EditorWorld::realData; }
    const EditorScope& rootScope() const override { return m_rootScope; }
    std::optional<std::int64_t> momentCount() const override { return m_momentCount; }
    const std::map<std::int64_t, EditorTile>& tiles() const override { return m_tiles.tiles(); }
    void showTiles(std::vector<std::int64_t> keys) override;
    std::optional<std::int64_t> meetingCount() const override { return m_meetingCount; }
    const std::optional<Meetings>& meetings() const override { return m_meetings; }
    bool meetingsLoaded() const override { return m_meetingsLoaded; }
    void loadMeetings() override;
    QCoro::Task<EditorTranscriptResult> transcript(std::string id) override;
    QCoro::Task<EditorLineDelete> deleteLine(std::string meeting, std::int64_t rowid,
                                             std::string witness) override;
    std::optional<std::string> meetingsError() const override { return m_meetingsError; }
    const std::vector<EditorCount>& memoryTypeCounts() const override { return m_memoryTypeCounts; }
    std::int64_t generation() const override { return m_generation; }
    std::optional<std::string> storeError() const override { return m_loadError; }
    QCoro::Task<EditorAnswer> query(EditorAsk ask) override;
    QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) override;
    void switchWorld(EditorWorld /*world*/) override {}
    void resetWorld() override;
    QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                 std::string to) override;
    QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                            EditorRulePlacement placement,
                                            std::string scope) override;
    const std::optional<EditorModsBoard>& modsBoard() const override { return m_modsBoard; }
    bool modsLoaded() const override { return m_modsLoaded; }
    std::optional<std::string> modsError() const override { return m_modsError; }
    void loadMods() override;
    const std::vector<EditorScopeRow>& scopeBoard() const override { return m_scopeBoard; }
    QCoro::Task<EditorWriteOutcome> mapFolder(std::string folder, std::string path) override;

private:
    struct ScopeReading {
        std::optional<EditorScope> tree = std::nullopt;
        std::vector<EditorScopeRow> board;
        std::optional<std::string> error = std::nullopt;
    };
    class OpenSteps;
    /// Which boards a write leaves out of date.
    enum class Boards { none, memories, scopes };

    QCoro::Task<> loadOnce();
    void settleLoad(const EditorAnswer& baseline, ScopeReading scopes);
    QCoro::Task<ScopeReading> readScopes();
    QCoro::Task<> reloadScopeBoard();
    QCoro::Task<> readMeetings();
    QCoro::Task<EditorMeetingsResult> fetchMeetings();
    QCoro::Task<> readMods();
    QCoro::Task<EditorAnswer> baseline();
    QCoro::Task<EditorAnswer> answer(EditorAsk ask);
    EditorAnswer settled(const TextBrowseAnswer& wire, const EditorAsk& ask);
    QCoro::Task<> drainTiles();
    QCoro::Task<EditorTile> fetchTile(std::int64_t key);
    QCoro::Task<EditorWriteOutcome> write(NotesRequest request, Boards boards);
    QCoro::Task<> refreshBoards(Boards after);
    QCoro::Task<EditorLink::Reply> send(GatewayRequest request, EditorLink::Lane lane);
    void report(const LinkLeg& leg, const std::string& verb,
                std::optional<LinkLeg::Instant> rendered = std::nullopt);
    void grow();

    Note m_note;
    EditorScope m_rootScope = EditorScope::root();
    std::optional<std::int64_t> m_momentCount;
    std::optional<std::int64_t> m_meetingCount;
    std::vector<EditorCount> m_memoryTypeCounts;
    bool m_loaded = false;
    std::optional<std::string> m_loadError;
    std::int64_t m_generation = 0;
    std::optional<Meetings> m_meetings = Meetings();
    bool m_meetingsLoaded = false;
    std::optional<std::string> m_meetingsError;
    std::optional<EditorModsBoard> m_modsBoard;
    bool m_modsLoaded = false;
    std::optional<std::string> m_modsError;
    TileWindow m_tiles;
    std::vector<EditorScopeRow> m_scopeBoard;

    std::optional<EditorAsk> m_pageAsk; ///< what the last page with several rows answers
    EditorRows m_page;
    std::int64_t m_baselineTotal = 0; ///< memories in the whole store, when last seen
    bool m_reloading = false;
    bool m_reloadAgain = false;
    bool m_loadingMeetings = false;
    bool m_loadingMods = false;
    std::deque<std::int64_t> m_wanted;
    bool m_fetching = false;
    bool m_frameDoorOpen = true;

    // Last: those who wait in these are resumed while they go.
    Lifetime m_life;
    EditorLink m_link;
    EditorBrowses m_browses;
};

} // namespace wendlow
