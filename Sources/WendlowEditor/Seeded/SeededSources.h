#pragma once

#include "Seeded/SeededQuery.h"
#include "Store/EditorStore.h"

#include <memory>
#include <optional>

namespace wendlow {

/// One made-up world with all that is read out of it.
struct SeededWorldData {
    explicit SeededWorldData(SeedWorld world);

    SeedWorld world;
    SeededContents contents;
    SeededQuery query;
    std::vector<EditorCount> typeCounts;
    std::vector<EditorScopeRow> scopeBoard;
};

/// The world in force. Each source looks at it, and whoever owns it tells when it is another one.
using SeededWorldNow = std::unique_ptr<const SeededWorldData>;

class SeededPages final : public PageSource {
public:
    explicit SeededPages(const SeededWorldNow& now) : m_now(now) {}

    QCoro::Task<EditorAnswer> query(EditorAsk ask, EditorAsker asker) override;
    QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) override;
    const std::vector<EditorCount>& memoryTypeCounts() const override { return m_now->typeCounts; }
    std::optional<std::int64_t> momentCount() const override {
        return std::ssize(m_now->contents.moments);
    }

private:
    const SeededWorldNow& m_now;
};

class SeededMeetings final : public MeetingSource {
public:
    std::optional<std::int64_t> meetingCount() const override { return std::nullopt; }
    const std::optional<Meetings>& meetings() const override { return m_none; }
    bool meetingsLoaded() const override { return false; }
    std::optional<std::string> meetingsError() const override { return std::nullopt; }
    void loadMeetings() override {}
    QCoro::Task<EditorTranscriptResult> transcript(std::string id) override;
    QCoro::Task<EditorLineDelete> deleteLine(std::string meeting, std::int64_t rowid,
                                             std::string witness) override;

private:
    const std::optional<Meetings> m_none;
};

class SeededMods final : public ModSource {
public:
    const std::optional<EditorModsBoard>& modsBoard() const override { return m_none; }
    bool modsLoaded() const override { return true; }
    std::optional<std::string> modsError() const override { return std::nullopt; }
    void loadMods() override {}

private:
    const std::optional<EditorModsBoard> m_none;
};

class SeededScopes final : public ScopeSource {
public:
    explicit SeededScopes(const SeededWorldNow& now) : m_now(now) {}

    const EditorScope& rootScope() const override { return m_now->contents.root; }
    const std::vector<EditorScopeRow>& scopeBoard() const override { return m_now->scopeBoard; }
    bool boardRead() const override { return true; }
    QCoro::Task<EditorWriteOutcome> mapFolder(std::string folder, std::string path) override;

private:
    const SeededWorldNow& m_now;
};

class SeededRules final : public RuleSource {
public:
    explicit SeededRules(const SeededWorldNow& now) : m_now(now) {}

    QCoro::Task<EditorRulesPicture> rulesPicture(std::string scope) override;
    QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                 std::string to) override;
    QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                            EditorRulePlacement placement,
                                            std::string scope) override;

private:
    const SeededWorldNow& m_now;
};

class SeededTiles final : public TileSource {
public:
    const std::map<std::int64_t, EditorTile>& tiles() const override { return m_tiles; }
    void showTiles(std::vector<std::int64_t> keys) override;

private:
    std::map<std::int64_t, EditorTile> m_tiles; ///< those on screen, and not many more
};

} // namespace wendlow
