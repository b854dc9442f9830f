#include "Support/Accessible.h"

#include <QDBusArgument>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <utility>

namespace wendlow::testing {
namespace {

constexpr auto accessibleInterface = "org.a11y.atspi.Accessible";

/// What is answered first; nothing where there is no answer.
QVariant call(const QDBusConnection& bus, const QString& service, const QString& path,
              const char* interface, const char* method, const QVariantList& arguments = {}) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, QLatin1String(interface),
                                                          QLatin1String(method));
    message.setArguments(arguments);
    const QDBusMessage reply = bus.call(message, QDBus::Block, 3000);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

std::pair<QString, QString> reference(const QDBusArgument& argument) {
    QString service;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> service >> path;
    argument.endStructure();
    return {service, path.path()};
}

std::vector<Accessible> childrenOf(const QDBusConnection& bus, const QString& service,
                                   const QString& path) {
    std::vector<Accessible> children;
    const QVariant reply = call(bus, service, path, accessibleInterface, "GetChildren");
    if (!reply.isValid())
        return children;
    const auto list = reply.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        const auto [childService, childPath] = reference(list);
        children.emplace_back(bus, childService, childPath);
    }
    list.endArray();
    return children;
}

} // namespace

Accessible::Accessible(QDBusConnection bus, QString service, QString path)
    : m_bus(std::move(bus)), m_service(std::move(service)), m_path(std::move(path)) {}

QVariant Accessible::property(const char* name) const {
    return call(m_bus, m_service, m_path, "org.freedesktop.DBus.Properties", "Get",
                {QLatin1String(accessibleInterface), QLatin1String(name)})
        .value<QDBusVariant>()
        .variant();
}

QString Accessible::name() const {
    return property("Name").toString();
}

QString Accessible::description() const {
    return property("Description").toString();
}

QString Accessible::role() const {
    return call(m_bus, m_service, m_path, accessibleInterface, "GetRoleName").toString();
}

QRect Accessible::extents() const {
    const QVariant reply =
        call(m_bus, m_service, m_path, "org.a11y.atspi.Component", "GetExtents", {0U});
    if (!reply.isValid())
        return {};
    const auto rectangle = reply.value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    rectangle.beginStructure();
    rectangle >> x >> y >> width >> height;
    rectangle.endStructure();
    return {x, y, width, height};
}

bool Accessible::state(unsigned bit) const {
    const QVariant reply = call(m_bus, m_service, m_path, accessibleInterface, "GetState");
    const auto words = reply.isValid() ? qdbus_cast<QList<uint>>(reply) : QList<uint>();
    const auto word = static_cast<qsizetype>(bit / 32);
    return word < words.size() && ((words.at(word) >> (bit % 32)) & 1U) != 0;
}

bool Accessible::act(const QString& action) const {
    const QVariant reply = call(m_bus, m_service, m_path, "org.a11y.atspi.Action", "GetActions");
    if (!reply.isValid())
        return false;
    const auto list = reply.value<QDBusArgument>();
    int index = 0;
    int found = -1;
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QString description;
        QString key;
        list.beginStructure();
        list >> name >> description >> key;
        list.endStructure();
        if (name.compare(action, Qt::CaseInsensitive) == 0)
            found = index;
        ++index;
    }
    list.endArray();
    return found >= 0 &&
           call(m_bus, m_service, m_path, "org.a11y.atspi.Action", "DoAction", {found}).isValid();
}

std::vector<Accessible> Accessible::children() const {
    return childrenOf(m_bus, m_service, m_path);
}

std::optional<Accessible> Accessible::find(const Test& test) const {
    for (const Accessible& child : children()) {
        if (test(child))
            return child;
        if (auto inside = child.find(test))
            return inside;
    }
    return std::nullopt;
}

std::vector<Accessible> Accessible::all(const Test& test) const {
    std::vector<Accessible> found;
    for (const Accessible& child : children()) {
        if (test(child))
            found.push_back(child);
        const auto inside = child.all(test);
        found.insert(found.end(), inside.begin(), inside.end());
    }
    return found;
}

std::optional<QDBusConnection> accessibilityBus(const QString& sessionAddress) {
    const auto session =
        QDBusConnection::connectToBus(sessionAddress, QStringLiteral("e2e-session"));
    const QString address = call(session, QStringLiteral("org.a11y.Bus"),
                                 QStringLiteral("/org/a11y/bus"), "org.a11y.Bus", "GetAddress")
                                .toString();
    if (address.isEmpty()) // a connection that fails keeps its name
        return std::nullopt;
    auto bus = QDBusConnection::connectToBus(address, QStringLiteral("e2e-accessibility"));
    if (!bus.isConnected())
        return std::nullopt;
    return bus;
}

std::vector<Accessible> accessibleApplications(const QDBusConnection& bus) {
    return childrenOf(bus, QStringLiteral("org.a11y.atspi.Registry"),
                      QStringLiteral("/org/a11y/atspi/accessible/root"));
}

} // namespace wendlow::testing
