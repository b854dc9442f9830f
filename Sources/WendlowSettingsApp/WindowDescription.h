#pragma once

#include "WindowDoor.h"

#include <QFlags>
#include <QSize>
#include <QVariantMap>

#include <optional>
#include <span>
#include <string_view>

class QWindow;

namespace wendlow {

class WindowModels;
struct PictureSession;

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
    std::string_view id; ///< in the names of files
    const char* title;   ///< still to be said
    QSize size;          ///< in device-independent pixels
    WindowStyles styles;
    WindowSide side = WindowSide::plain;
    WindowPlace place = WindowPlace::centred;
    bool alwaysDark = false; ///< whatever the system says
    bool ownLooks = false;   ///< what sets its looks leaves those of the other windows alone
    /// Of what can be resized; its face stands at that, with words of up to one and a half times
    /// their size.
    QSize least = {560, 420};
    /// What a sibling process or a launch argument asks for it by.
    std::optional<WindowDoor::Pane> door = std::nullopt;
    /// The name of its line in the World menu; empty: it has none.
    std::string_view worldLine = "";

    /// Module and file of its face, and what is given to that.
    std::string_view file = "WendlowSettingsApp/PlainStage.qml";
    QVariantMap (*properties)(WindowModels& models) = nullptr;
    /// Whether what it opens with is there; left out: as soon as it is drawn.
    bool (*isComplete)(WindowModels& models) = nullptr;
    /// A person is back from another window.
    void (*returnedTo)(WindowModels& models) = nullptr;
    /// Takes the pictures of its states; left out: it has but one.
    void (*takePictures)(const PictureSession& session, WindowModels& models) = nullptr;
};

namespace WindowDescriptions {

/// What marks a window as belonging to the Editor side.
inline constexpr const char* editorSideIdentifier = "wendlow.editor-side";

/// In the order of the cases. This is the place to add a window.
std::span<const WindowDescription> all();
const WindowDescription& of(WindowKind kind);
/// The window that the door opens for a pane.
WindowKind kindOf(WindowDoor::Pane pane);

/// Gives a window its title, size, style and side.
void dress(QWindow& window, const WindowDescription& description);
/// Lets a window be made no smaller than its face stands with words of this scale; one that cannot
/// be resized grows with them, as far as its screen goes.
void leaveRoom(QWindow& window, const WindowDescription& description, double textScale);
/// Whether a window, which may be absent, is marked as belonging to the Editor side.
bool isEditorSide(const QWindow* window);

} // namespace WindowDescriptions

} // namespace wendlow
