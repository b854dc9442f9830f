#include "WorldMenu.h"

#include "Say.h"

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
                         .title = say("World"),
                         .lines = {world("dayZero", World::dayZero, Shortcuts::DayZero),
                                   world("someData", World::someData, Shortcuts::SomeData),
                                   world("powerUser", World::powerUser, Shortcuts::PowerUser),
                                   world("realData", World::realData, Shortcuts::RealData),
                                   {},
                                   {.id = QStringLiteral("resetWorld"),
                                    .title = say("Reset World"),
                                    .keys = std::nullopt,
                                    .act = [this] { m_worlds().resetWorld(); }},
                                   {}}};
    for (const WindowDescription& window : WindowDescriptions::all())
        if (!window.worldLine.empty())
            menu.lines.push_back(bench(window));
    return menu;
}

MenuLine WorldMenuActions::world(const char* id, EditorWorld world, Shortcuts::Id keys) const {
    MenuLine line = MenuLine::of(keys, id, [this, world] { m_worlds().switchWorld(world); });
    line.checked = [this, world] { return m_worlds().world() == world; };
    return line;
}

MenuLine WorldMenuActions::bench(const WindowDescription& window) const {
    return {.id = QString::fromUtf8(window.worldLine),
            .title = say(window.title),
            .keys = std::nullopt,
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
