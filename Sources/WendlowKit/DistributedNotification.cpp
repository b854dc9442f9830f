#include "DistributedNotification.h"

#include "LogCategories.h"

#include <utility>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QMap>

namespace wendlow {

namespace {

using WireUserInfo = QMap<QString, QString>;

const QString path = QStringLiteral("/works/fenmoor/wendlow");
const QString interface = QStringLiteral("works.fenmoor.wendlow.DistributedNotification");
const QString member = QStringLiteral("Posted");
const QString signature = QStringLiteral("ssa{ss}b");
constexpr std::size_t mostWaiting = 16;

WireUserInfo wire(const std::optional<DistributedNotification::UserInfo>& userInfo) {
    WireUserInfo result;
    if (userInfo)
        for (const auto& [key, value] : *userInfo)
            result.insert(QString::fromStdString(key), QString::fromStdString(value));
    return result;
}

DistributedNotification read(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    DistributedNotification result{.name = arguments.at(0).toString().toStdString()};
    const QString object = arguments.at(1).toString();
    if (!object.isEmpty())
        result.object = object.toStdString();
    const auto userInfo = qdbus_cast<WireUserInfo>(arguments.at(2));
    if (!userInfo.isEmpty()) {
        result.userInfo.emplace();
        for (auto entry = userInfo.cbegin(); entry != userInfo.cend(); ++entry)
            result.userInfo->emplace(entry.key().toStdString(), entry.value().toStdString());
    }
    return result;
}

} // namespace

struct DistributedNotificationCenter::Observer {
    std::string name;
    Callback callback;
};

DistributedNotificationCenter::DistributedNotificationCenter(QObject* parent)
    : QObject(parent), m_connection(QString()) {
    qDBusRegisterMetaType<WireUserInfo>();
}

DistributedNotificationCenter::DistributedNotificationCenter(const QDBusConnection& connection,
                                                             QObject* parent)
    : DistributedNotificationCenter(parent) {
    listenOn(connection);
}

void DistributedNotificationCenter::listenOn(const QDBusConnection& connection) {
    m_connection = connection;
    m_hasBegun = true;
    if (!m_connection.isConnected()) {
        qCWarning(LogCategory::notifications,
                  "there is no session bus, so nothing is posted and nothing is heard");
        return;
    }
    // No sender is named: naming one would ask the bus for its owner and wait for the answer.
    m_connection.connect(QString(), path, interface, member, QStringList(), signature, this,
                         SLOT(received(QDBusMessage)));
    for (const QDBusMessage& message : std::exchange(m_waiting, {}))
        m_connection.send(message);
}

DistributedNotificationCenter::~DistributedNotificationCenter() = default;

void DistributedNotificationCenter::post(const DistributedNotification& notification,
                                         Delivery delivery) {
    QDBusMessage message = QDBusMessage::createSignal(path, interface, member);
    message << QString::fromStdString(notification.name)
            << QString::fromStdString(notification.object.value_or(std::string()))
            << QVariant::fromValue(wire(notification.userInfo))
            << (delivery == Delivery::immediately);
    if (!m_hasBegun) {
        if (m_waiting.size() == mostWaiting)
            m_waiting.erase(m_waiting.begin());
        m_waiting.push_back(message);
        return;
    }
    if (!m_connection.isConnected() || !m_connection.send(message))
        qCWarning(LogCategory::notifications, "%s could not be posted: there is no session bus",
                  notification.name.c_str());
}

DistributedNotificationCenter::Token DistributedNotificationCenter::addObserver(std::string name,
                                                                                Callback callback) {
    std::erase_if(m_observers, [](const auto& observer) { return observer.expired(); });
    auto observer = std::make_shared<const Observer>(std::move(name), std::move(callback));
    m_observers.push_back(observer);
    return observer;
}

void DistributedNotificationCenter::received(const QDBusMessage& message) {
    // The bus matches the signature as well; a peer-to-peer connection would not.
    if (message.signature() != signature)
        return;
    const DistributedNotification notification = read(message);
    // A callback may add or end observations, so the list is copied, and each is asked in its turn.
    const auto observers = m_observers;
    for (const auto& candidate : observers)
        if (const auto observer = candidate.lock(); observer && observer->name == notification.name)
            observer->callback(notification);
}

} // namespace wendlow

#include "moc_DistributedNotification.cpp"
