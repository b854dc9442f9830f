#include "XPC/BusMessage.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QVariantMap>

namespace wendlow::BusMessage {

const QString path = QStringLiteral("/works/fenmoor/wendlow/gateway");
const QString interface = QStringLiteral("works.fenmoor.wendlow.Gateway");
const QString eventMember = QStringLiteral("Event");

namespace {

const QString exchangeMember = QStringLiteral("Exchange");
const QString signature = QStringLiteral("a{sv}");

/// What the bus says, or the library in its place, where nobody is there to answer. A peer may give
/// its errors any of these names, and none means more by it than that it refuses one message.
XPCError::Extent extent(const QDBusMessage& error) {
    const bool isPeers = error.service().startsWith(QLatin1Char(':'));
    switch (QDBusError(error).type()) {
    case QDBusError::Disconnected:
    case QDBusError::NoReply:
    case QDBusError::NoServer:
    case QDBusError::ServiceUnknown:
        return isPeers ? XPCError::Extent::message : XPCError::Extent::connection;
    default:
        return error.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")
                   ? XPCError::Extent::connection
                   : XPCError::Extent::message;
    }
}

QVariant written(const xpc_object_t& value) {
    if (const auto* data = std::get_if<std::string>(&value))
        return QByteArray(data->data(), static_cast<qsizetype>(data->size()));
    if (const auto* number = std::get_if<std::uint64_t>(&value))
        return static_cast<qulonglong>(*number);
    return std::get<bool>(value);
}

xpc_object_t value(const QVariant& variant) {
    switch (variant.metaType().id()) {
    case QMetaType::QByteArray:
        return variant.toByteArray().toStdString();
    case QMetaType::ULongLong:
        return std::uint64_t{variant.toULongLong()};
    case QMetaType::Bool:
        return variant.toBool();
    default:
        return XPCOther{};
    }
}

} // namespace

QDBusMessage call(const QString& name, const xpc_object_t& message) {
    QVariantMap entries;
    for (const auto& [key, entry] : std::get<XPCDictionary>(message))
        entries.insert(QString::fromStdString(key), written(entry));
    QDBusMessage call = QDBusMessage::createMethodCall(name, path, interface, exchangeMember);
    call.setAutoStartService(false);
    call << entries;
    return call;
}

xpc_object_t read(const QDBusMessage& message) {
    if (message.type() != QDBusMessage::ReplyMessage &&
        message.type() != QDBusMessage::SignalMessage)
        return XPCError{message.errorMessage().toStdString(), extent(message)};
    if (message.signature() != signature)
        return XPCOther{};
    XPCDictionary entries;
    const auto map = qdbus_cast<QVariantMap>(message.arguments().constFirst());
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        entries.emplace(entry.key().toStdString(), value(entry.value()));
    return entries;
}

} // namespace wendlow::BusMessage
