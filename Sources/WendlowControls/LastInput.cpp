#include "LastInput.h"

#include <QEvent>
#include <QGuiApplication>

#include <utility>

namespace wendlow {

LastInput::LastInput(QObject* parent) : QObject(parent) {
    qGuiApp->installEventFilter(this);
}

bool LastInput::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool key = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::TouchBegin;
    if ((key || press) && std::exchange(m_byKey, key) != key)
        Q_EMIT byKeyChanged();
    return QObject::eventFilter(watched, event);
}

} // namespace wendlow

#include "moc_LastInput.cpp"
