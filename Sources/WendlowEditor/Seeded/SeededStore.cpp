#include "Seeded/SeededStore.h"

#include <algorithm>

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

} // namespace

SeededStore::SeededStore(SeedWorld world) : m_world(world) {
    build(world);
}

void SeededStore::build(SeedWorld world) {
    m_world = world;
    m_contents = SeedWorlds::contents(world);
    m_query = std::make_unique<SeededQuery>(m_contents);
    m_typeCounts = typeCensus(m_query->allMemories());
    m_scopeBoard.clear();
    addRows(m_contents.root, m_scopeBoard);
}

EditorWorld SeededStore::world() const {
    const auto found = std::ranges::find(editorWorlds, std::optional(m_world), seedWorld);
    return *found;
}

void SeededStore::switchWorld(EditorWorld world) {
    const auto wanted = seedWorld(world);
    if (!wanted || *wanted == m_world)
        return;
    build(*wanted);
    ++m_generation;
    Q_EMIT changed();
}

void SeededStore::resetWorld() {
    build(m_world);
    ++m_generation;
    Q_EMIT changed();
}

QCoro::Task<EditorAnswer> SeededStore::query(EditorAsk ask) {
    co_return m_query->answer(ask);
}

QCoro::Task<std::optional<EditorMemoryDetail>> SeededStore::detail(std::string id) {
    const auto& all = m_query->allMemories();
    const auto hit = std::ranges::find(
        all, id, [](const EditorMemoryHit& row) -> const auto& { return row.memory.id; });
    if (hit == all.end())
        co_return std::nullopt;
    const EditorMemory& memory = hit->memory;
    co_return EditorMemoryDetail{.id = memory.id, .why = memory.why, .body = memory.body};
}

QCoro::Task<EditorTranscriptResult> SeededStore::transcript(std::string /*id*/) {
    co_return std::unexpected("A seeded design world holds no meetings.");
}

QCoro::Task<EditorLineDelete>
SeededStore::deleteLine(std::string /*meeting*/, std::int64_t /*rowid*/, std::string /*witness*/) {
    co_return EditorLineDeleteCase::Failed{noStore};
}

QCoro::Task<EditorWriteOutcome> SeededStore::editRuleLine(std::string /*id*/, std::string /*from*/,
                                                          std::string /*to*/) {
    co_return EditorWriteOutcome::refused(noStore);
}

QCoro::Task<EditorWriteOutcome> SeededStore::addRule(std::string /*text*/, std::string /*why*/,
                                                     EditorRulePlacement /*placement*/,
                                                     std::string /*scope*/) {
    co_return EditorWriteOutcome::refused(noStore);
}

QCoro::Task<EditorWriteOutcome> SeededStore::mapFolder(std::string /*folder*/,
                                                       std::string /*path*/) {
    co_return EditorWriteOutcome::refused(noStore);
}

} // namespace wendlow
