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
    // The faces over the old root go only by and by, and look at it until they are gone.
    constexpr std::size_t kept = 4;
    if (m_root) {
        m_root->retire();
        m_before.push_back(std::move(m_root));
    }
    if (m_before.size() > kept)
        m_before.pop_front();
    m_root = std::make_unique<EditorRoot>(m_worlds.store(), m_clocks);
    QQmlEngine::setObjectOwnership(m_root.get(), QQmlEngine::CppOwnership);
    Q_EMIT rootChanged();
}

} // namespace wendlow
