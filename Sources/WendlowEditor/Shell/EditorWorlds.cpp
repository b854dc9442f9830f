#include "Shell/EditorWorlds.h"

#include <utility>

namespace wendlow {

EditorWorlds::EditorWorlds(std::shared_ptr<WendlowClient> client, EditorWorld world,
                           EditorLiveStore::Note note)
    : m_world(world), m_seeded(seedWorld(world).value_or(SeedWorld::someData)),
      m_live(std::move(client), std::move(note)) {
    if (world == EditorWorld::realData)
        startLoading();
}

/// Soon, so that the window's own question, asked as it is made, goes out first, and its page is
/// there before the long reads of the opening.
void EditorWorlds::startLoading() {
    m_live.loadSoon();
}

EditorStore& EditorWorlds::store() {
    if (m_world == EditorWorld::realData)
        return m_live;
    return m_seeded;
}

void EditorWorlds::switchWorld(EditorWorld world) {
    if (world != EditorWorld::realData) {
        if (world == m_world)
            return;
        m_seeded.switchWorld(world);
    } else if (!m_live.loaded() || m_world != EditorWorld::realData) {
        startLoading();
    }
    if (std::exchange(m_world, world) != world)
        Q_EMIT worldChanged();
}

void EditorWorlds::daemonCame() {
    // Another world reads the real data when it is left.
    if (m_world == EditorWorld::realData)
        startLoading();
}

void EditorWorlds::resetWorld() {
    store().resetWorld();
}

} // namespace wendlow

#include "moc_EditorWorlds.cpp"
