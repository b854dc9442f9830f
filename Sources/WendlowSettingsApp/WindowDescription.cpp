#include "WindowDescription.h"

#include "Say.h"

#include <QScreen>
#include <QVariant>
#include <QWindow>

#include <algorithm>

namespace wendlow::WindowDescriptions {

namespace {

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

void dress(QWindow& window, const WindowDescription& description) {
    window.setTitle(say(description.title));
    window.setFlags(windowFlags(description.styles));
    window.resize(description.size);
    const bool resizable = description.styles.testFlag(WindowStyle::resizable);
    window.setMinimumSize(resizable ? description.least : description.size);
    if (!resizable)
        window.setMaximumSize(description.size);
    if (description.side == WindowSide::editor)
        window.setProperty(identifierProperty, QString::fromUtf8(editorSideIdentifier));
}

void leaveRoom(QWindow& window, const WindowDescription& description, double textScale) {
    if (!description.styles.testFlag(WindowStyle::resizable)) {
        const QSize size = (QSizeF(description.size) * textScale).toSize();
        const QSize room = window.screen()->availableGeometry().size();
        const QSize grown = size.boundedTo(room.expandedTo(description.size));
        window.setMinimumSize(grown);
        window.setMaximumSize(grown);
        window.resize(grown);
        return;
    }
    const double growth = std::max(1.0, textScale / 1.5);
    const QSize least = (QSizeF(description.least) * growth).toSize();
    window.setMinimumSize(least);
    window.resize(window.size().expandedTo(least));
}

bool isEditorSide(const QWindow* window) {
    return window &&
           window->property(identifierProperty).toString() == QLatin1String(editorSideIdentifier);
}

} // namespace wendlow::WindowDescriptions
