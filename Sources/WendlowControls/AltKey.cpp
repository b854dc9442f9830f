#include "AltKey.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickWindow>

#include <utility>

namespace wendlow {

AltKey::AltKey(QObject* parent) : QObject(parent) {
    qGuiApp->installEventFilter(this);
}

void AltKey::setWithin(QQuickItem* within) {
    if (m_within == within)
        return;
    m_within = within;
    Q_EMIT withinChanged();
}

void AltKey::setHeld(bool held) {
    if (std::exchange(m_held, held) != held)
        Q_EMIT heldChanged();
}

void AltKey::setLone(bool lone) {
    if (std::exchange(m_lone, lone) != lone)
        Q_EMIT loneChanged();
}

void AltKey::look(const QKeyEvent& key, bool isHere) {
    if (key.key() != Qt::Key_Alt) {
        setLone(m_lone && key.type() == QEvent::KeyRelease); // pressed before
    } else if (isHere && key.type() == QEvent::KeyPress) {
        setHeld(true);
        setLone((key.modifiers() & ~Qt::AltModifier) == Qt::NoModifier);
    } else if (isHere && key.type() == QEvent::KeyRelease && !key.isAutoRepeat()) {
        const bool wasLone = m_lone;
        setHeld(false);
        setLone(false);
        if (wasLone)
            Q_EMIT tapped();
    }
}

bool AltKey::eventFilter(QObject* watched, QEvent* event) {
    const bool isHere = m_within && watched == m_within->window();
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        look(*static_cast<QKeyEvent*>(event), isHere);
        break;
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
        // Let go elsewhere, it is never told here.
        if (isHere)
            setHeld(false);
        [[fallthrough]];
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::Wheel:
        setLone(false);
        break;
    default:
        break;
    }
    return false;
}

} // namespace wendlow

#include "moc_AltKey.cpp"
