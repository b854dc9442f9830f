#include "DaemonSwitch.h"

namespace wendlow {

void DaemonSwitch::take(bool on, Age asked) {
    if (asked != m_age || (m_known && m_on == on))
        return;
    m_known = true;
    m_on = on;
    Q_EMIT changed();
}

void DaemonSwitch::beginWrite() {
    ++m_age;
    m_writing = true;
    Q_EMIT changed();
}

void DaemonSwitch::answerWrite(const QString& refusal) {
    ++m_age;
    m_refusal = refusal;
    Q_EMIT changed();
}

void DaemonSwitch::endWrite() {
    m_writing = false;
    Q_EMIT changed();
}

} // namespace wendlow

#include "moc_DaemonSwitch.cpp"
