#pragma once

#include <expected>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QSet>
#include <QVariantMap>

#include "Client.h"
#include "GatewayEvent.h"
#include "Service/Misbehaviour.h"

namespace wendlow {

/// The bus face of a gateway: it owns the name, takes exchanges and hands each one's answer back
/// when it is ready, in whatever order that is, and sends events to those who subscribed. Belongs
/// to one thread, which needs an event loop; the gateway's work should be done on another.
class GatewayService final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "works.fenmoor.wendlow.Gateway")

public:
    GatewayService(std::shared_ptr<Gateway> gateway, QDBusConnection bus,
                   Misbehaviour misbehaviour = {});
    ~GatewayService() override;

    /// Takes the name, or tells in a sentence why it cannot.
    std::expected<void, std::string> start(const std::string& name);

    /// Has each message counted from now on, by a letter: `r` for a request, `k` for a knock, `s`
    /// for a subscription, `?` for one that wants a reply.
    void watch(std::function<void(char)> watcher) { m_watcher = std::move(watcher); }

    /// To every subscriber that is still there.
    void push(const GatewayEvent& event);

public Q_SLOTS:
    /// Called by the bus. The return value only gives the method its signature: the reply is sent
    /// when the gateway has answered.
    Q_SCRIPTABLE QVariantMap Exchange(const QVariantMap& message, const QDBusMessage& call);

Q_SIGNALS:
    /// Stands in the description of the interface. Never emitted, which would reach everybody:
    /// events go to subscribers by name.
    Q_SCRIPTABLE void Event(const QVariantMap& message);

    /// The bus has gone, and the name with it.
    void lost();

private:
    /// How the message is to be replied to.
    ReplyManner nextManner(const QVariantMap& message);
    QCoro::Task<> exchange(QDBusMessage call, QVariantMap message, ReplyManner manner);
    void subscribe(const QDBusMessage& call);
    void send(const QString& subscriber, const QVariant& argument) const;

    const std::shared_ptr<Gateway> m_gateway;
    QDBusConnection m_bus;
    Misbehaviour m_misbehaviour;
    std::function<void(char)> m_watcher = [](char) {};
    QSet<QString> m_subscribers;
    QDBusServiceWatcher m_departures;
};

} // namespace wendlow
