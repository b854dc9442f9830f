#include "Seeded/SeededStore.h"

#include <algorithm>

namespace wendlow {

SeededStore::SeededStore(SeedWorld world) : m_now(std::make_unique<SeededWorldData>(world)) {}

EditorWorld SeededStore::world() const {
    const auto found = std::ranges::find(editorWorlds, std::optional(m_now->world), seedWorld);
    return *found;
}

void SeededStore::build(SeedWorld world) {
    m_now = std::make_unique<SeededWorldData>(world);
    ++m_generation;
    tell(EditorChange::generation | EditorChange::counts | EditorChange::scopes);
}

void SeededStore::switchWorld(EditorWorld world) {
    const auto wanted = seedWorld(world);
    if (wanted && *wanted != m_now->world)
        build(*wanted);
}

void SeededStore::resetWorld() {
    build(m_now->world);
}

} // namespace wendlow

#include "moc_SeededStore.cpp"
