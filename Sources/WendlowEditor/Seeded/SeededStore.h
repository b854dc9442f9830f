#pragma once

#include "Seeded/SeededQuery.h"
#include "Store/EditorStore.h"

#include <memory>

namespace wendlow {

/// A store without a daemon: worlds that the program makes up, so that every face can be seen in
/// fixed conditions. Nothing can be written to it.
class SeededStore final : public EditorStore {
    Q_OBJECT

public:
    explicit SeededStore(SeedWorld world = SeedWorld::someData);

    EditorWorld world() const override;
    const EditorScope& rootScope() const override { return m_contents.root; }
    std::optional<std::int64_t> momentCount() const override {
        return static_cast<std::int64_t>(m_contents.moments.size());
    }
    const std::map<std::int64_t, EditorTile>& tiles() const override { return m_tiles; }
    void showTiles(std::vector<std::int64_t> /*keys*/) override {}
    std::optional<std::int64_t> meetingCount() const override { return std::nullopt; }
    const std::optional<Meetings>& meetings() const override { return m_meetings; }
    bool meetingsLoaded() const override { return false; }
    void loadMeetings() override {}
    QCoro::Task<EditorTranscriptResult> transcript(std::string id) override;
    QCoro::Task<EditorLineDelete> deleteLine(std::string meeting, std::int64_t rowid,
                                             std::string witness) override;
    std::optional<std::string> meetingsError() const override { return std::nullopt; }
    const std::vector<EditorCount>& memoryTypeCounts() const override { return m_typeCounts; }
    std::int64_t generation() const override { return m_generation; }
    std::optional<std::string> storeError() const override { return std::nullopt; }
    QCoro::Task<EditorAnswer> query(EditorAsk ask) override;
    QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) override;
    void switchWorld(EditorWorld world) override;
    void resetWorld() override;
    QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                 std::string to) override;
    QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                            EditorRulePlacement placement,
                                            std::string scope) override;
    const std::optional<EditorModsBoard>& modsBoard() const override { return m_modsBoard; }
    bool modsLoaded() const override { return true; }
    std::optional<std::string> modsError() const override { return std::nullopt; }
    void loadMods() override {}
    const std::vector<EditorScopeRow>& scopeBoard() const override { return m_scopeBoard; }
    QCoro::Task<EditorWriteOutcome> mapFolder(std::string folder, std::string path) override;

private:
    void build(SeedWorld world);

    SeedWorld m_world;
    SeededContents m_contents;
    std::unique_ptr<const SeededQuery> m_query;
    std::vector<EditorCount> m_typeCounts;
    std::vector<EditorScopeRow> m_scopeBoard;
    std::int64_t m_generation = 0;
    const std::map<std::int64_t, EditorTile> m_tiles;
    const std::optional<Meetings> m_meetings;
    const std::optional<EditorModsBoard> m_modsBoard;
};

} // namespace wendlow
