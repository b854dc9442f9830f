#include "General/HeldAlt.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickWindow>

#include <utility>

namespace wendlow {

HeldAlt::HeldAlt(QObject* parent) : QObject(parent) {
    qGuiApp->installEventFilter(this);
}

void HeldAlt::setWithin(QQuickItem* within) {
    if (m_within == within)
        return;
    m_within = within;
    Q_EMIT withinChanged();
}

void HeldAlt::setHeld(bool held) {
    if (std::exchange(m_held, held) != held)
        Q_EMIT heldChanged();
}

bool HeldAlt::eventFilter(QObject* watched, QEvent* event) {
    if (!m_within || watched != m_within->window())
        return false;
    const auto isAlt = [event] { return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt; };
    switch (event->type()) {
    case QEvent::KeyPress:
        if (isAlt())
            setHeld(true);
        break;
    case QEvent::KeyRelease:
        if (isAlt() && !static_cast<QKeyEvent*>(event)->isAutoRepeat())
            setHeld(false);
        break;
    // Let go elsewhere, it is never told here.
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
        setHeld(false);
        break;
    default:
        break;
    }
    return false;
}

} // namespace wendlow

#include "moc_HeldAlt.cpp"
