#pragma once

#include "WindowDoor.h"

#include <QFlags>
#include <QSize>

#include <span>
#include <string_view>

class QWindow;

namespace wendlow {

/// One case for each kind of window; there is at most one window of a kind.
enum class WindowKind {
    settings,
    stats,
    editor,
    onboarding,
    workbench,
    controlsBench,
    filtersBench,
    searchBench,
    rowsBench,
};

enum class WindowStyle {
    titled = 1,
    closable = 2,
    miniaturizable = 4,
    resizable = 8,
    fullSizeContent = 16,
};
Q_DECLARE_FLAGS(WindowStyles, WindowStyle)
Q_DECLARE_OPERATORS_FOR_FLAGS(WindowStyles)

/// The side of the product a window belongs to; the World menu is there on the Editor's side only.
enum class WindowSide { plain, editor };

/// Where a new window of the kind stands.
enum class WindowPlace { centred, centredThenCascaded };

struct WindowDescription {
    WindowKind kind;
    std::string_view title;
    QSize size; ///< in device-independent pixels
    WindowStyles styles;
    WindowSide side = WindowSide::plain;
    WindowPlace place = WindowPlace::centred;
    bool alwaysDark = false; ///< whatever the system says
};

namespace WindowDescriptions {

/// What marks a window as belonging to the Editor side.
inline constexpr const char* editorSideIdentifier = "wendlow.editor-side";

/// In the order of the cases.
std::span<const WindowDescription> all();
const WindowDescription& of(WindowKind kind);
/// The window that the door opens for a pane.
WindowKind kindOf(WindowDoor::Pane pane);

/// Gives a window its title, size, style and side.
void dress(QWindow& window, const WindowDescription& description);
/// Whether a window, which may be absent, is marked as belonging to the Editor side.
bool isEditorSide(const QWindow* window);

} // namespace WindowDescriptions

} // namespace wendlow
