#include "GatewayPresence.h"

#include "ClientInstance.h"

namespace wendlow {

void GatewayPresence::listenOn(const QDBusConnection& connection) {
    constexpr std::string_view id = ClientInstance::gatewayID;
    m_watcher = std::make_unique<QDBusServiceWatcher>(
        QString::fromUtf8(id.data(), static_cast<qsizetype>(id.size())), connection,
        QDBusServiceWatcher::WatchForOwnerChange);
    // One may take over from another without a moment between them.
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                if (!owner.isEmpty())
                    Q_EMIT came();
            });
}

} // namespace wendlow

#include "moc_GatewayPresence.cpp"
