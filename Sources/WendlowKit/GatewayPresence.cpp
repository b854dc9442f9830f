#include "GatewayPresence.h"

#include "ClientInstance.h"

#include <QDBusServiceWatcher>

namespace wendlow {

GatewayPresence::GatewayPresence(const QDBusConnection& connection, QObject* parent)
    : QObject(parent) {
    if (!connection.isConnected())
        return;
    constexpr std::string_view id = ClientInstance::gatewayID;
    auto* const watcher =
        new QDBusServiceWatcher(QString::fromUtf8(id.data(), static_cast<qsizetype>(id.size())),
                                connection, QDBusServiceWatcher::WatchForOwnerChange, this);
    // One may take over from another without a moment between them.
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                if (!owner.isEmpty())
                    Q_EMIT came();
            });
}

} // namespace wendlow
