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
    auto before = std::exchange(m_root, std::make_unique<EditorRoot>(m_worlds.store(), m_clocks));
    QQmlEngine::setObjectOwnership(m_root.get(), QQmlEngine::CppOwnership);
    Q_EMIT rootChanged();
    // The faces over the old root go when control is back in the event loop, and so must it.
    if (before)
        before.release()->deleteLater();
}

} // namespace wendlow
