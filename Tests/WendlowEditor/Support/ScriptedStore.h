#pragma once

#include "Seeded/SeededSources.h"
#include "Store/Waiting.h"

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

/// Pages that the test gives when it pleases; each question waits until then.
class ScriptedPages final : public PageSource {
public:
    std::optional<std::int64_t> moments;
    std::vector<EditorCount> types;
    std::vector<EditorAsk> asked; ///< every ask, in order
    std::vector<EditorAsker> askers;
    std::vector<std::string> detailsAsked;

    /// Whoever still waits at the end goes on, and finds that his model is gone.
    ~ScriptedPages() override {
        m_browses.resumeAll({});
        m_details.resumeAll(std::nullopt);
    }

    bool isWaiting() const { return !m_browses.empty(); }
    bool detailWaits() const { return !m_details.empty(); }
    /// What the one that has waited longest was asked for.
    const std::string& detailToAnswer() const {
        return detailsAsked[detailsAsked.size() - m_detailsWaiting];
    }
    /// Answers the question that has waited longest.
    void answer(EditorAnswer answer) { m_browses.resumeFirst(std::move(answer)); }
    void settle(EditorMemoryHits rows = {}) {
        const EditorAsk ask = asked[asked.size() - m_waiting];
        answer(settled(ask, std::move(rows)));
    }
    void answerDetail(std::optional<EditorMemoryDetail> detail) {
        m_details.resumeFirst(std::move(detail));
    }

    QCoro::Task<EditorAnswer> query(EditorAsk ask, EditorAsker asker) override {
        asked.push_back(std::move(ask));
        askers.push_back(asker);
        ++m_waiting;
        EditorAnswer answer = co_await m_browses;
        --m_waiting;
        co_return answer;
    }
    QCoro::Task<std::optional<EditorMemoryDetail>> detail(std::string id) override {
        detailsAsked.push_back(std::move(id));
        ++m_detailsWaiting;
        auto detail = co_await m_details;
        --m_detailsWaiting;
        co_return detail;
    }
    const std::vector<EditorCount>& memoryTypeCounts() const override { return types; }
    std::optional<std::int64_t> momentCount() const override { return moments; }

private:
    Waiting<EditorAnswer> m_browses;
    Waiting<std::optional<EditorMemoryDetail>> m_details;
    std::size_t m_waiting = 0;
    std::size_t m_detailsWaiting = 0;
};

/// Meetings that the test gives when it pleases; each transcript and each delete waits until then.
class ScriptedMeetings final : public MeetingSource {
public:
    std::optional<Meetings> list;
    std::optional<std::int64_t> count;
    bool loaded = false;
    std::optional<std::string> error;
    int loads = 0;
    std::vector<std::string> asked; ///< "meeting", or "meeting: row witness" for a delete, in order

    ~ScriptedMeetings() override {
        m_transcripts.resumeAll(std::unexpected("gone"));
        m_deletes.resumeAll(EditorLineDeleteCase::Failed{"gone"});
    }

    /// Answers the question that has waited longest.
    void answer(EditorTranscriptResult result) { m_transcripts.resumeFirst(std::move(result)); }
    void answerDelete(EditorLineDelete outcome) { m_deletes.resumeFirst(std::move(outcome)); }

    std::optional<std::int64_t> meetingCount() const override { return count; }
    const std::optional<Meetings>& meetings() const override { return list; }
    bool meetingsLoaded() const override { return loaded; }
    std::optional<std::string> meetingsError() const override { return error; }
    void loadMeetings() override { ++loads; }
    QCoro::Task<EditorTranscriptResult> transcript(std::string id) override {
        asked.push_back(std::move(id));
        co_return co_await m_transcripts;
    }
    QCoro::Task<EditorLineDelete> deleteLine(std::string meeting, std::int64_t rowid,
                                             std::string witness) override {
        asked.push_back(meeting + ": " + std::to_string(rowid) + " " + witness);
        co_return co_await m_deletes;
    }

private:
    Waiting<EditorTranscriptResult> m_transcripts;
    Waiting<EditorLineDelete> m_deletes;
};

class ScriptedMods final : public ModSource {
public:
    std::optional<EditorModsBoard> board;
    bool loaded = true;
    std::optional<std::string> error;
    int loads = 0;

    const std::optional<EditorModsBoard>& modsBoard() const override { return board; }
    bool modsLoaded() const override { return loaded; }
    std::optional<std::string> modsError() const override { return error; }
    void loadMods() override { ++loads; }
};

class ScriptedScopes final : public ScopeSource {
public:
    EditorScope root = EditorScope::root();
    std::vector<EditorScopeRow> board;
    bool read = true;
    std::vector<std::string> mapped; ///< every mapping, as "folder → path"

    ~ScriptedScopes() override { m_mappings.resumeAll({}); }

    void answerMapping(EditorWriteOutcome outcome) { m_mappings.resumeFirst(std::move(outcome)); }

    const EditorScope& rootScope() const override { return root; }
    const std::vector<EditorScopeRow>& scopeBoard() const override { return board; }
    bool boardRead() const override { return read; }
    QCoro::Task<EditorWriteOutcome> mapFolder(std::string folder, std::string path) override {
        mapped.push_back(folder + " → " + path);
        co_return co_await m_mappings;
    }

private:
    Waiting<EditorWriteOutcome> m_mappings;
};

/// Rules that the test gives when it pleases; each question and each write waits until then.
class ScriptedRules final : public RuleSource {
public:
    std::vector<std::string> asked;   ///< the scope of every picture, in order
    std::vector<std::string> written; ///< every write, as "id: from → to" or "scope: text (why)"

    ~ScriptedRules() override {
        m_pictures.resumeAll({});
        m_writes.resumeAll({});
    }

    /// Answers the question that has waited longest.
    void answer(EditorRulesPicture picture) { m_pictures.resumeFirst(std::move(picture)); }
    void answerWrite(EditorWriteOutcome outcome) { m_writes.resumeFirst(std::move(outcome)); }

    QCoro::Task<EditorRulesPicture> rulesPicture(std::string scope) override {
        asked.push_back(std::move(scope));
        co_return co_await m_pictures;
    }
    QCoro::Task<EditorWriteOutcome> editRuleLine(std::string id, std::string from,
                                                 std::string to) override {
        written.push_back(id + ": " + from + " → " + to);
        co_return co_await m_writes;
    }
    QCoro::Task<EditorWriteOutcome> addRule(std::string text, std::string why,
                                            EditorRulePlacement placement,
                                            std::string scope) override {
        written.push_back(scope + ": " + text + " (" + why + ") in " + placement.label());
        co_return co_await m_writes;
    }

private:
    Waiting<EditorRulesPicture> m_pictures;
    Waiting<EditorWriteOutcome> m_writes;
};

/// A store of scripted sources. A face's own test fakes its source alone.
class ScriptedStore final : public EditorStore {
public:
    std::int64_t generationNow = 0;
    std::optional<std::string> error;
    bool loadingNow = false;
    int stops = 0;
    int looks = 0;
    ScriptedPages page;
    ScriptedMeetings meeting;
    ScriptedMods mod;
    ScriptedScopes scope;
    ScriptedRules rule;
    SeededTiles tile;

    /// What has changed is told; by itself, all of it.
    void tell(EditorChanges what = EditorChanges::fromInt(63)) { EditorStore::tell(what); }
    void grow() {
        ++generationNow;
        tell(EditorChange::generation);
    }

    EditorWorld world() const override { return EditorWorld::realData; }
    std::int64_t generation() const override { return generationNow; }
    std::optional<std::string> storeError() const override { return error; }
    bool loading() const override { return loadingNow; }
    ScriptedPages& pages() override { return page; }
    ScriptedMeetings& meetings() override { return meeting; }
    ScriptedMods& mods() override { return mod; }
    ScriptedScopes& scopes() override { return scope; }
    ScriptedRules& rules() override { return rule; }
    SeededTiles& tiles() override { return tile; }
    void switchWorld(EditorWorld /*world*/) override {}
    void resetWorld() override { grow(); }
    void lookAgain() override { ++looks; }
    void stopWaiting() override { ++stops; }
};

} // namespace wendlow::testing
