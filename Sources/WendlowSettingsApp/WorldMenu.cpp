#include "WorldMenu.h"

#include <utility>

namespace wendlow {

namespace {

QString worldMenuId() {
    return QStringLiteral("world");
}

} // namespace

WorldMenuActions::WorldMenuActions(Worlds worlds, OpenBench openBench)
    : m_worlds(std::move(worlds)), m_openBench(std::move(openBench)) {}

MenuDescription WorldMenuActions::menu() const {
    using World = EditorWorld;
    MenuDescription menu{.id = worldMenuId(),
                         .title = QStringLiteral("World"),
                         .lines = {world("dayZero", World::dayZero, Qt::Key_1),
                                   world("someData", World::someData, Qt::Key_2),
                                   world("powerUser", World::powerUser, Qt::Key_3),
                                   world("realData", World::realData, Qt::Key_4),
                                   {},
                                   {.id = QStringLiteral("resetWorld"),
                                    .title = QStringLiteral("Reset World"),
                                    .keys = {},
                                    .act = [this] { m_worlds().resetWorld(); }},
                                   {}}};
    for (const WindowDescription& window : WindowDescriptions::all())
        if (!window.worldLine.empty())
            menu.lines.push_back(bench(window));
    return menu;
}

MenuLine WorldMenuActions::world(const char* id, EditorWorld world, int key) const {
    return {.id = QString::fromLatin1(id),
            .title = QString::fromUtf8(label(world)),
            .keys = QKeySequence(Qt::CTRL | static_cast<Qt::Key>(key)),
            .act = [this, world] { m_worlds().switchWorld(world); },
            .checked = [this, world] { return m_worlds().world() == world; }};
}

MenuLine WorldMenuActions::bench(const WindowDescription& window) const {
    return {.id = QString::fromUtf8(window.worldLine),
            .title = QString::fromUtf8(window.title),
            .keys = {},
            .act = [this, kind = window.kind] { m_openBench(kind); }};
}

void syncWorldMenu(MainMenu& mainMenu, const WorldMenuActions& actions, const QWindow* mainWindow) {
    constexpr std::size_t betweenEditAndWindow = 2;
    const bool wanted = WindowDescriptions::isEditorSide(mainWindow);
    const bool present = mainMenu.contains(worldMenuId());
    if (wanted && !present)
        mainMenu.insert(betweenEditAndWindow, actions.menu());
    else if (!wanted && present)
        mainMenu.remove(worldMenuId());
}

} // namespace wendlow
