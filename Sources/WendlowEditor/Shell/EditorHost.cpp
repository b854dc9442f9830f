#include "Shell/EditorHost.h"

#include <QQmlEngine>

#include <utility>

namespace wendlow {

EditorHost::EditorHost(EditorWorlds& worlds, EditorClocks clocks)
    : m_worlds(worlds), m_clocks(std::move(clocks)) {
    connect(&m_worlds, &EditorWorlds::worldChanged, this, &EditorHost::renew);
    renew();
}

EditorHost::~EditorHost() = default;

void EditorHost::renew() {
    if (m_root) {
        m_root->retire();
        if (m_root->isSeen()) {
            connect(m_root.get(), &EditorRoot::unseen, this, &EditorHost::letGo,
                    Qt::QueuedConnection);
            m_before.push_back(std::move(m_root));
        }
    }
    m_root = std::make_unique<EditorRoot>(m_worlds.store(), m_clocks);
    QQmlEngine::setObjectOwnership(m_root.get(), QQmlEngine::CppOwnership);
    Q_EMIT rootChanged();
}

bool EditorHost::isMadeUp() const {
    return !m_posing && m_worlds.world() != EditorWorld::realData;
}

void EditorHost::setPosing(bool posing) {
    if (std::exchange(m_posing, posing) != posing)
        Q_EMIT rootChanged();
}

void EditorHost::backToRealData() {
    m_worlds.switchWorld(EditorWorld::realData);
}

void EditorHost::letGo() {
    std::erase_if(m_before, [](const auto& root) { return !root->isSeen(); });
}

} // namespace wendlow

#include "moc_EditorHost.cpp"
