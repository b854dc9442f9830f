#include "HeldKeys.h"

#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace wendlow {

namespace {

/// Whether the key is a letter to what has the focus. Return is one only where there are lines.
bool writes(const QObject& window, int key) {
    const auto* const quick = qobject_cast<const QQuickWindow*>(&window);
    const QQuickItem* const item = quick ? quick->activeFocusItem() : nullptr;
    return item && item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod) &&
           (key == Qt::Key_Space || item->inherits("QQuickTextEdit"));
}

} // namespace

HeldKeys::HeldKeys(QWindow& window) : QObject(&window) {
    window.installEventFilter(this);
}

void HeldKeys::pressOnceIn(QWindow& window) {
    new HeldKeys(window); // the window owns it
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
    // A held key is let go and pressed in turn, as far as its events tell.
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    const auto* const key = static_cast<const QKeyEvent*>(event);
    const bool presses =
        key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Space;
    return key->isAutoRepeat() && presses && !writes(*watched, key->key());
}

} // namespace wendlow

#include "moc_HeldKeys.cpp"
