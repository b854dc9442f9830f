#include "CXPCShim.h"

#include "SessionBusAddress.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace {

const QString bus = QStringLiteral("org.freedesktop.DBus");
constexpr int patience = 1000; ///< milliseconds

bool hasOwner(const QDBusConnection& connection, const char* name) {
    QDBusMessage question = QDBusMessage::createMethodCall(
        bus, QStringLiteral("/org/freedesktop/DBus"), bus, QStringLiteral("NameHasOwner"));
    question << QString::fromUtf8(name);
    const QDBusMessage answer = connection.call(question, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage &&
           answer.arguments().value(0) == QVariant(true);
}

} // namespace

bool wendlow_mach_service_registered(const char* name) {
    const QString address = wendlow::sessionBusAddress();
    if (address.isEmpty())
        return false;
    // A connection of its own: the client's has just failed.
    const QString connectionName = wendlow::uniqueConnectionName();
    const bool registered = hasOwner(QDBusConnection::connectToBus(address, connectionName), name);
    QDBusConnection::disconnectFromBus(connectionName);
    return registered;
}
