#include "SessionBusAddress.h"

#include <atomic>

#include <QFileInfo>

namespace wendlow {

QString sessionBusAddress() {
    QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString socket = runtime + QStringLiteral("/bus");
    if (runtime.isEmpty() || !QFileInfo::exists(socket))
        return {};
    return QStringLiteral("unix:path=") + socket;
}

QString uniqueConnectionName() {
    static std::atomic<unsigned> count = 0;
    return QStringLiteral("wendlow-gateway-%1").arg(count++);
}

} // namespace wendlow
