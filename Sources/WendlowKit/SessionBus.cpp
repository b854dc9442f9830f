#include "SessionBus.h"

#include "BusPulse.h"
#include "SessionBusAddress.h"

#include <algorithm>
#include <mutex>
#include <thread>
#include <utility>

namespace wendlow {

namespace {

using namespace std::chrono_literals;

constexpr auto firstPause = 250ms;
constexpr auto longestPause = 8s;
constexpr auto patience = 2s;

} // namespace

/// Who is told of a dial; nobody any more once that has gone.
struct SessionBus::Caller {
    std::mutex lock;
    SessionBus* bus;
};

SessionBus::SessionBus(QObject* parent)
    : QObject(parent), m_caller(std::make_shared<Caller>()), m_pause(firstPause) {
    m_caller->bus = this;
    m_redial.setSingleShot(true);
    connect(&m_redial, &QTimer::timeout, this, &SessionBus::dial);
}

SessionBus::~SessionBus() {
    const std::lock_guard guard(m_caller->lock);
    m_caller->bus = nullptr;
}

void SessionBus::dial() {
    std::thread([caller = m_caller, name = uniqueConnectionName()] {
        const QString address = sessionBusAddress();
        // A dial that hangs would hold up every other one of the process, and its end.
        const bool answers = feelPulse(address, patience) == BusPulse::answers;
        const QDBusConnection bus =
            answers ? QDBusConnection::connectToBus(address, name) : QDBusConnection(name);
        if (!bus.isConnected())
            QDBusConnection::disconnectFromBus(name);
        const std::lock_guard guard(caller->lock);
        if (caller->bus)
            QMetaObject::invokeMethod(
                caller->bus, [to = caller->bus, bus] { to->opened(bus); }, Qt::QueuedConnection);
    }).detach();
}

void SessionBus::opened(const QDBusConnection& bus) {
    if (!bus.isConnected())
        return redial();
    m_name = bus.name();
    m_pause = firstPause;
    QDBusConnection(bus).connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                                 QStringLiteral("org.freedesktop.DBus.Local"),
                                 QStringLiteral("Disconnected"), this, SLOT(lost()));
    Q_EMIT connected(bus);
}

void SessionBus::lost() {
    // Leaving waits for a dial that is under way, of whichever connection.
    std::thread([name = std::exchange(m_name, QString())] {
        QDBusConnection::disconnectFromBus(name);
    }).detach();
    redial();
}

void SessionBus::redial() {
    m_redial.start(m_pause);
    m_pause = std::min<std::chrono::milliseconds>(2 * m_pause, longestPause);
}

} // namespace wendlow

#include "moc_SessionBus.cpp"
