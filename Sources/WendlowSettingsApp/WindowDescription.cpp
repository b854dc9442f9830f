#include "WindowDescription.h"

#include "ClientInstance.h"

#include <QVariant>
#include <QWindow>

#include <array>

namespace wendlow::WindowDescriptions {

namespace {

constexpr WindowStyles bench = WindowStyles(WindowStyle::titled) | WindowStyle::closable |
                               WindowStyle::miniaturizable | WindowStyle::resizable;
constexpr WindowStyles fullSize = bench | WindowStyle::fullSizeContent;
constexpr WindowStyles fixed = WindowStyles(WindowStyle::titled) | WindowStyle::closable |
                               WindowStyle::miniaturizable | WindowStyle::fullSizeContent;

constexpr const char* identifierProperty = "identifier";

Qt::WindowFlags windowFlags(WindowStyles styles) {
    // The system draws the title bar here. Content below a transparent one, a hidden title and a
    // compact toolbar in it are not to be had from a window manager, so `fullSizeContent` says
    // nothing on this platform.
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint;
    const auto map = [&](WindowStyle style, Qt::WindowFlags meaning) {
        if (styles.testFlag(style))
            flags |= meaning;
    };
    map(WindowStyle::titled, Qt::WindowTitleHint | Qt::WindowSystemMenuHint);
    map(WindowStyle::closable, Qt::WindowCloseButtonHint);
    map(WindowStyle::miniaturizable, Qt::WindowMinimizeButtonHint);
    map(WindowStyle::resizable, Qt::WindowMaximizeButtonHint);
    return flags;
}

} // namespace

std::span<const WindowDescription> all() {
    using Kind = WindowKind;
    constexpr WindowSide editor = WindowSide::editor;
    static const std::array<WindowDescription, 9> table = {{
        {Kind::settings, ClientInstance::productName, {980, 860}, fullSize},
        {Kind::stats, "Stats", {800, 780}, fullSize},
        {Kind::editor, "Memories", {980, 860}, fullSize, editor, WindowPlace::centredThenCascaded},
        {Kind::onboarding,
         "Welcome to Wendlow",
         {800, 620},
         fixed,
         WindowSide::plain,
         WindowPlace::centred,
         true},
        {Kind::workbench, "Workbench", {1200, 680}, bench, editor},
        {Kind::controlsBench, "Controls Bench", {780, 900}, bench, editor},
        {Kind::filtersBench, "Filters Bench", {820, 940}, bench, editor},
        {Kind::searchBench, "Search Bench", {1080, 900}, bench, editor},
        {Kind::rowsBench, "Rows Bench", {980, 940}, bench, editor},
    }};
    return table;
}

const WindowDescription& of(WindowKind kind) {
    return all()[static_cast<std::size_t>(kind)];
}

WindowKind kindOf(WindowDoor::Pane pane) {
    switch (pane) {
    case WindowDoor::Pane::settings:
        return WindowKind::settings;
    case WindowDoor::Pane::stats:
        return WindowKind::stats;
    case WindowDoor::Pane::editor:
        return WindowKind::editor;
    case WindowDoor::Pane::onboarding:
        return WindowKind::onboarding;
    }
    return WindowKind::settings;
}

void dress(QWindow& window, const WindowDescription& description) {
    window.setTitle(QString::fromUtf8(description.title));
    window.setFlags(windowFlags(description.styles));
    window.resize(description.size);
    if (!description.styles.testFlag(WindowStyle::resizable)) {
        window.setMinimumSize(description.size);
        window.setMaximumSize(description.size);
    }
    if (description.side == WindowSide::editor)
        window.setProperty(identifierProperty, QString::fromUtf8(editorSideIdentifier));
}

bool isEditorSide(const QWindow* window) {
    return window &&
           window->property(identifierProperty).toString() == QLatin1String(editorSideIdentifier);
}

} // namespace wendlow::WindowDescriptions
