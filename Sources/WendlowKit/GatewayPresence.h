#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>

namespace wendlow {

/// Tells when the daemon's gateway comes, or comes again: who was told before that it does not run
/// may ask once more. Says nothing of one that is there from the start. UI thread.
class GatewayPresence final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Another bus takes the place of the one before. Nothing is told before there is one.
    void listenOn(const QDBusConnection& connection);

Q_SIGNALS:
    void came();

private:
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
};

} // namespace wendlow
