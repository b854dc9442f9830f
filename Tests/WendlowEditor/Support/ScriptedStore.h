#pragma once

#include "Live/Waiting.h"
#include "Store/EditorStore.h"

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace wendlow::testing {

inline EditorMemoryHit memory(std::string id, std::string type = "decision",
                              std::string title = "A title", std::string scope = "/") {
    const EditorDate day(std::chrono::hours(24 * 20000));
    return {.memory = {.id = std::move(id),
                       .type = std::move(type),
                       .title = std::move(title),
                       .day = day},
            .scopeID = std::move(scope)};
}

inline EditorMemoryHits memories(int count, const std::string& type = "decision") {
    EditorMemoryHits hits;
    for (int at = 0; at < count; ++at)
        hits.push_back(memory(type + std::to_string(at), type, "Number " + std::to_string(at)));
    return hits;
}

/// An answer that settles the ask with these rows.
inline EditorAnswer settled(EditorAsk ask, EditorMemoryHits rows = {}) {
    EditorAnswer answer;
    answer.narrowed = !ask.term.empty();
    answer.ask = std::move(ask);
    answer.state = EditorAnswerStateCase::Settled{};
    answer.total = answer.sliceTotal = std::ssize(rows);
    answer.rows = std::move(rows);
    return answer;
}

/// A store whose answers the test gives when it pleases; each question waits until then.
class ScriptedStore final : public EditorStore {
public:
    EditorWorld worldNow = EditorWorld::realData;
    EditorScope root = EditorScope::root();
    std::optional<std::int64_t> moments, meetingsCount;
    std::optional<Meetings> meetingList;
    std::vector<EditorCount> types;
    std::int64_t generationNow = 0;
    std::optional<std::string> error;
    std::optional<EditorModsBoard> mods;
    std::vector<EditorScopeRow> board;
    int meetingLoads = 0;

    std::vector<EditorAsk> asked; ///< every ask, in order
    std::vector<std::string> detailsAsked;

    /// Whoever still waits at the end goes on, and finds that his model is gone.
    ~ScriptedStore() override {
        m_browses.resumeAll({});
        m_details.resumeAll(std::nullopt);
    }

    /// What has changed is told.
    void tell() { Q_EMIT changed(); }
    void grow() {
        ++generationNow;
        tell();
    }
    bool isWaiting() const { return !m_browses.empty(); }
    bool detailWaits() const { return !m_details.empty(); }
    /// Answers the question that has waited longest.
    void answer(EditorAnswer answer) { m_browses.resumeFirst(std::move(answer)); }
    void settle(EditorMemoryHits rows = {}) {
        const EditorAsk ask = asked[asked.size() - m_waiting];
        answer(settled(ask, std::move(rows)));
    }
    void answerDetail(std::optional<EditorMemoryDetail> detail) {
        m_details.resumeFirst(std::move(detail));
    }

    EditorWorld world() const override { return worldNow; }
    const EditorScope& rootScope() const override { return root; }
    std::optional<std::int64_t> momentCount() const override { return moments; }
    const std::map<std::int64_t, EditorTile>& tiles() const override { return m_tiles; }
    void showTiles(std::vector<std::int64_t> /*keys*/) override {}
    std::optional<std::int64_t> meetingCount() const override { return meetingsCount; }
    const std::optional<Meetings>& meetings() const override { return meetingList; }
    bool meetingsLoaded() const override { return false; }
    void loadMeetings() override { ++meetingLoads; }
    QCoro::Task<EditorTranscriptResult> transcript(std::string /*id*/) override {
        co_return std::unexpected("none");
    }
    QCoro::Task<EditorLineDelete> deleteLine(std::string, std::int64_t, std::string) override {
        co_return EditorLineDeleteCase::Refused{};
    }
    std::optional<std::string> meetingsError() const override { return std::nullopt; }
    const std::vector<EditorCount>& memoryTypeCounts() const override { return types; }
    std::int64_t generation() const override { return generationNow; }
    std::optional<std::string> storeError() const override { return error; }
    QCoro::Task<EditorAnswer> query(EditorAsk ask) override {
        asked.push_back(std::move(ask));
        ++m_waiting;
        EditorAnswer answer = co_await m_browses;
        --m_waiting;
        co_return answer;
    }
    QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) override {
        detailsAsked.push_back(std::move(id));
        co_return co_await m_details;
    }
    void switchWorld(EditorWorld /*world*/) override {}
    void resetWorld() override { grow(); }
    QCoro::Task<EditorWriteOutcome> editRuleLine(std::string, std::string, std::string) override {
        co_return EditorWriteOutcome::refused("no");
    }
    QCoro::Task<EditorWriteOutcome> addRule(std::string, std::string, EditorRulePlacement,
                                            std::string) override {
        co_return EditorWriteOutcome::refused("no");
    }
    const std::optional<EditorModsBoard>& modsBoard() const override { return mods; }
    bool modsLoaded() const override { return true; }
    std::optional<std::string> modsError() const override { return std::nullopt; }
    void loadMods() override {}
    const std::vector<EditorScopeRow>& scopeBoard() const override { return board; }
    QCoro::Task<EditorWriteOutcome> mapFolder(std::string, std::string) override {
        co_return EditorWriteOutcome::refused("no");
    }

private:
    Waiting<EditorAnswer> m_browses;
    Waiting<std::optional<EditorMemoryDetail>> m_details;
    std::size_t m_waiting = 0;
    const std::map<std::int64_t, EditorTile> m_tiles;
};

} // namespace wendlow::testing
