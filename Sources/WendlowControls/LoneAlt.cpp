#include "LoneAlt.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickWindow>

#include <utility>

namespace wendlow {

LoneAlt::LoneAlt(QObject* parent) : QObject(parent) {
    qGuiApp->installEventFilter(this);
}

void LoneAlt::setWithin(QQuickItem* within) {
    if (m_within == within)
        return;
    m_within = within;
    Q_EMIT withinChanged();
}

void LoneAlt::setHeld(bool held) {
    if (std::exchange(m_held, held) != held)
        Q_EMIT heldChanged();
}

bool LoneAlt::eventFilter(QObject* watched, QEvent* event) {
    const auto isAlt = [event] { return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt; };
    const bool isHere = m_within && watched == m_within->window();
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        if (!isAlt())
            setHeld(false);
        else if (isHere && event->type() == QEvent::KeyPress)
            setHeld((static_cast<QKeyEvent*>(event)->modifiers() & ~Qt::AltModifier) ==
                    Qt::NoModifier);
        break;
    case QEvent::KeyRelease:
        if (isHere && isAlt() && !static_cast<QKeyEvent*>(event)->isAutoRepeat() && m_held) {
            setHeld(false);
            Q_EMIT tapped();
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::Wheel:
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

#include "moc_LoneAlt.cpp"
