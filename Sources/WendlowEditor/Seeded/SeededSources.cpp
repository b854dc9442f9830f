#include "Seeded/SeededSources.h"

#include "Seeded/SeededRulesPicture.h"
#include "Seeded/SeededScreens.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

constexpr const char* noStore =
    "This is a seeded design world — it has no store to write to. Switch to My real data (⌘4) to "
    "edit.";

void addRows(const EditorScope& scope, std::vector<EditorScopeRow>& board) {
    EditorMemoryHits filed;
    for (const EditorMemory& memory : scope.memories)
        filed.push_back({.memory = memory, .scopeID = scope.id});
    board.push_back({.path = scope.id, .folders = scope.folderPaths, .kinds = typeCensus(filed)});
    for (const EditorScope& child : scope.children)
        addRows(child, board);
}

QCoro::Task<EditorWriteOutcome> refused() {
    co_return EditorWriteOutcome::refused(noStore);
}

} // namespace

SeededWorldData::SeededWorldData(SeedWorld of)
    : world(of), contents(SeedWorlds::contents(of)), query(contents),
      typeCounts(typeCensus(query.allMemories())) {
    addRows(contents.root, scopeBoard);
}

QCoro::Task<EditorAnswer> SeededPages::query(EditorAsk ask, EditorAsker /*asker*/) {
    co_return m_now->query.answer(ask);
}

QCoro::Task<std::optional<EditorMemoryDetail>> SeededPages::detail(std::string id) {
    const auto& all = m_now->query.allMemories();
    const auto hit = std::ranges::find(
        all, id, [](const EditorMemoryHit& row) -> const auto& { return row.memory.id; });
    if (hit == all.end())
        co_return std::nullopt;
    const EditorMemory& memory = hit->memory;
    co_return EditorMemoryDetail{.id = memory.id, .why = memory.why, .body = memory.body};
}

void SeededTiles::showTiles(std::vector<std::int64_t> keys) {
    constexpr std::size_t most = 200;
    if (m_tiles.size() > most)
        std::erase_if(m_tiles, [&](const auto& tile) {
            return std::ranges::find(keys, tile.first) == keys.end();
        });
    for (const std::int64_t key : keys)
        if (m_tiles.try_emplace(key, EditorTile{.image = SeededScreens::draw(key)}).second)
            Q_EMIT tileArrived(key);
}

QCoro::Task<EditorTranscriptResult> SeededMeetings::transcript(std::string /*id*/) {
    co_return std::unexpected("A seeded design world holds no meetings.");
}

QCoro::Task<EditorLineDelete> SeededMeetings::deleteLine(std::string /*meeting*/,
                                                         std::int64_t /*rowid*/,
                                                         std::string /*witness*/) {
    co_return EditorLineDeleteCase::Failed{noStore};
}

QCoro::Task<EditorWriteOutcome> SeededScopes::mapFolder(std::string /*folder*/,
                                                        std::string /*path*/) {
    return refused();
}

QCoro::Task<EditorRulesPicture> SeededRules::rulesPicture(std::string scope) {
    co_return SeededRulesPictures::picture(m_now->contents, m_now->query, scope);
}

QCoro::Task<EditorWriteOutcome> SeededRules::editRuleLine(std::string /*id*/, std::string /*from*/,
                                                          std::string /*to*/) {
    return refused();
}

QCoro::Task<EditorWriteOutcome> SeededRules::addRule(std::string /*text*/, std::string /*why*/,
                                                     EditorRulePlacement /*placement*/,
                                                     std::string /*scope*/) {
    return refused();
}

} // namespace wendlow
