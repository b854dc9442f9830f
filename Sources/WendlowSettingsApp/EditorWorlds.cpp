#include "EditorWorlds.h"

namespace wendlow {

void EditorWorlds::switchWorld(World world) {
    if (world == m_world)
        return;
    m_world = world;
    Q_EMIT worldChanged();
}

QString EditorWorlds::title(World world) {
    switch (world) {
    case World::dayZero:
        return QStringLiteral("Day zero");
    case World::someData:
        return QStringLiteral("Some data");
    case World::powerUser:
        return QStringLiteral("Power user");
    case World::realData:
        return QStringLiteral("My real data");
    }
    return {};
}

} // namespace wendlow
