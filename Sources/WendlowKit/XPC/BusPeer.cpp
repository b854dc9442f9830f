#include "XPC/BusPeer.h"

#include <limits>
#include <utility>

#include <QDBusPendingCallWatcher>

#include "SessionBusAddress.h"
#include "XPC/BusMessage.h"
#include "XPC/DispatchQueue.h"

namespace wendlow {

namespace {

/// What D-Bus takes for no limit at all; left to itself it gives up after 25 seconds.
constexpr int noLimit = std::numeric_limits<int>::max();
constexpr int ownerLimit = 5000; ///< milliseconds

const QString busName = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

void leaveBus(const std::shared_ptr<DispatchQueue>& queue, const QString& connectionName) {
    if (queue) // leaving waits for a dial that is under way, of whichever connection
        queue->aside([connectionName] { QDBusConnection::disconnectFromBus(connectionName); });
    else
        QDBusConnection::disconnectFromBus(connectionName);
}

} // namespace

std::shared_ptr<BusPeer> BusPeer::make(const QString& name,
                                       const std::shared_ptr<DispatchQueue>& queue) {
    const std::shared_ptr<BusPeer> peer(new BusPeer(name, queue),
                                        [](BusPeer* gone) { gone->deleteLater(); });
    queue->adopt(*peer);
    return peer;
}

BusPeer::BusPeer(QString name, std::weak_ptr<DispatchQueue> queue)
    : m_name(std::move(name)), m_connectionName(uniqueConnectionName()), m_queue(std::move(queue)) {
}

BusPeer::~BusPeer() {
    close();
}

void BusPeer::resume() {
    if (m_state != State::made)
        return;
    m_state = State::dialling;
    const std::shared_ptr<DispatchQueue> queue = m_queue.lock();
    if (!queue)
        return;
    queue->aside([weakQueue = m_queue, weakThis = weak_from_this(), name = m_connectionName] {
        if (weakThis.expired())
            return;
        const QString address = sessionBusAddress();
        QDBusConnection bus = address.isEmpty() ? QDBusConnection(name)
                                                : QDBusConnection::connectToBus(address, name);
        if (const auto opening = weakQueue.lock())
            opening->async([weakThis, bus = std::move(bus), name, weakQueue] {
                if (const auto self = weakThis.lock())
                    self->opened(bus);
                else
                    leaveBus(weakQueue.lock(), name);
            });
        else
            QDBusConnection::disconnectFromBus(name);
    });
}

void BusPeer::opened(const QDBusConnection& bus) {
    if (m_state != State::dialling) {
        leaveBus(m_queue.lock(), m_connectionName);
        return;
    }
    m_state = State::open;
    m_bus = bus;
    if (!m_bus->isConnected()) {
        lost();
        return;
    }
    m_bus->connect(QString(), busPath + QStringLiteral("/Local"),
                   busName + QStringLiteral(".Local"), QStringLiteral("Disconnected"), this,
                   SLOT(lost()));
    if (m_eventHandler)
        listen();
    for (Waiting& waiting : std::exchange(m_waiting, {}))
        hand(std::move(waiting));
}

// The bus answers in order, so the owner is known before the first event that a subscription
// brings.
void BusPeer::listen() {
    // No sender is named: naming one would ask the bus for its owner and wait for the answer.
    m_bus->connect(QString(), BusMessage::path, BusMessage::interface, BusMessage::eventMember,
                   this, SLOT(eventArrived(QDBusMessage)));
    m_bus->connect(busName, busPath, busName, QStringLiteral("NameOwnerChanged"), {m_name},
                   QString(), this, SLOT(ownerChanged(QString, QString, QString)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(busName, busPath, busName, QStringLiteral("GetNameOwner"));
    question << m_name;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(question, ownerLimit), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusMessage answer = watcher->reply();
        m_owner = answer.arguments().value(0).toString();
        if (answer.type() != QDBusMessage::ReplyMessage)
            fail("nobody owns the service's name");
    });
}

void BusPeer::eventArrived(const QDBusMessage& message) {
    // Anybody on the bus can send a signal.
    if (m_eventHandler && message.service() == m_owner)
        m_eventHandler(BusMessage::read(message));
}

void BusPeer::ownerChanged(const QString&, const QString& before, const QString&) {
    if (!m_owner.isEmpty() && before == m_owner)
        fail("the service has gone");
}

void BusPeer::lost() {
    fail("there is no session bus");
    close();
}

void BusPeer::cancel() {
    m_eventHandler = nullptr;
    close();
}

void BusPeer::send(xpc_object_t message) {
    hand({.message = std::move(message), .handler = nullptr});
}

void BusPeer::sendWithReply(xpc_object_t message, Handler handler) {
    hand({.message = std::move(message), .handler = std::move(handler)});
}

void BusPeer::hand(Waiting waiting) {
    if (m_state == State::made || m_state == State::dialling)
        m_waiting.push_back(std::move(waiting));
    else if (m_state == State::open && waiting.handler)
        ask(waiting.message, std::move(waiting.handler));
    else if (m_state == State::open)
        m_bus->send(BusMessage::call(m_name, waiting.message));
    else if (waiting.handler)
        waiting.handler(XPCError{"the connection was cancelled"});
}

void BusPeer::ask(const xpc_object_t& message, Handler handler) {
    const QDBusPendingCall call = m_bus->asyncCall(BusMessage::call(m_name, message), noLimit);
    if (call.isFinished()) { // without a bus, and then no watcher would ever tell
        handler(BusMessage::read(call.reply()));
        return;
    }
    const std::uint64_t number = ++m_lastAsked;
    m_asked.emplace(number, std::move(handler));
    auto* const watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, number] {
        watcher->deleteLater();
        if (const auto asked = m_asked.extract(number))
            asked.mapped()(BusMessage::read(watcher->reply()));
    });
}

/// Tells the event handler, once.
void BusPeer::fail(const char* why) {
    if (const Handler handler = std::exchange(m_eventHandler, nullptr))
        handler(XPCError{why});
}

void BusPeer::close() {
    const bool wasOpen = m_state == State::open;
    m_state = State::closed;
    for (auto& [number, handler] : std::exchange(m_asked, {}))
        handler(XPCError{"the connection was cancelled"});
    for (const Waiting& waiting : std::exchange(m_waiting, {}))
        if (waiting.handler)
            waiting.handler(XPCError{"the connection was cancelled"});
    m_bus.reset();
    if (wasOpen)
        leaveBus(m_queue.lock(), m_connectionName);
}

} // namespace wendlow

#include "moc_BusPeer.cpp"
