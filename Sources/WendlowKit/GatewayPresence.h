#pragma once

#include <QDBusConnection>
#include <QObject>

namespace wendlow {

/// Tells when the daemon's gateway comes, or comes again: who was told before that it does not run
/// may ask once more. Says nothing of one that is there from the start. UI thread.
class GatewayPresence final : public QObject {
    Q_OBJECT

public:
    explicit GatewayPresence(const QDBusConnection& connection, QObject* parent = nullptr);

Q_SIGNALS:
    void came();
};

} // namespace wendlow
