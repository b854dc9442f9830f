#pragma once

#include "MainMenu.h"
#include "Shell/EditorWorlds.h"
#include "WindowDescription.h"

#include <functional>

namespace wendlow {

/// What the lines of the World menu do.
class WorldMenuActions final {
public:
    /// Gives the worlds, which are made on first need and never replaced.
    using Worlds = std::function<EditorWorlds&()>;
    using OpenBench = std::function<void(WindowKind)>;

    WorldMenuActions(Worlds worlds, OpenBench openBench);

    /// The World menu. The actions must outlive it.
    MenuDescription menu() const;

private:
    MenuLine world(const char* id, EditorWorld world, Shortcuts::Id keys) const;
    MenuLine bench(const WindowDescription& window) const;

    const Worlds m_worlds;
    const OpenBench m_openBench;
};

/// Keeps the World menu in the main menu, between "Edit" and "Window", exactly while the main
/// window belongs to the Editor side. `mainWindow` may be null.
void syncWorldMenu(MainMenu& mainMenu, const WorldMenuActions& actions, const QWindow* mainWindow);

} // namespace wendlow
