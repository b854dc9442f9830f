#include "XPC/Handover.h"

#include <QCoreApplication>
#include <QEvent>

namespace wendlow {

void Resumer::resume() {
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool Resumer::event(QEvent* event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    deleteLater();
    m_coroutine.resume();
    return true;
}

} // namespace wendlow
