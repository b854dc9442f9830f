#pragma once

#include "Seeded/SeededSources.h"

namespace wendlow {

/// A store without a daemon: worlds that the program makes up, so that every face can be seen in
/// fixed conditions. Nothing can be written to it.
class SeededStore final : public EditorStore {
    Q_OBJECT

public:
    explicit SeededStore(SeedWorld world = SeedWorld::someData);

    EditorWorld world() const override;
    std::int64_t generation() const override { return m_generation; }
    std::optional<std::string> storeError() const override { return std::nullopt; }
    bool loading() const override { return false; }
    PageSource& pages() override { return m_pages; }
    MeetingSource& meetings() override { return m_meetings; }
    ModSource& mods() override { return m_mods; }
    ScopeSource& scopes() override { return m_scopes; }
    RuleSource& rules() override { return m_rules; }
    TileSource& tiles() override { return m_tiles; }
    void switchWorld(EditorWorld world) override;
    void resetWorld() override;

private:
    void build(SeedWorld world);

    SeededWorldNow m_now;
    std::int64_t m_generation = 0;
    SeededPages m_pages{m_now};
    SeededMeetings m_meetings;
    SeededMods m_mods;
    SeededScopes m_scopes{m_now};
    SeededRules m_rules{m_now};
    SeededTiles m_tiles;
};

} // namespace wendlow
