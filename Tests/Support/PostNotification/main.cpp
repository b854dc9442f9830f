// wendlow-post-notification NAME [--object OBJECT] [--info KEY=VALUE]... [--immediately]
//
// Posts one distributed notification on the session bus that DBUS_SESSION_BUS_ADDRESS names, and
// ends when the bus has it: 0 when it was posted, 1 without a bus, 2 for wrong usage.

#include "DistributedNotification.h"

#include <cstdio>
#include <optional>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

namespace {

using wendlow::DistributedNotificationCenter;

struct Request {
    wendlow::DistributedNotification notification;
    DistributedNotificationCenter::Delivery delivery =
        DistributedNotificationCenter::Delivery::whenIdle;
};

std::optional<Request> parse(QStringList arguments) {
    if (arguments.isEmpty())
        return std::nullopt;
    Request request{.notification = {.name = arguments.takeFirst().toStdString()}};
    while (!arguments.isEmpty()) {
        const QString flag = arguments.takeFirst();
        if (flag == QLatin1String("--immediately")) {
            request.delivery = DistributedNotificationCenter::Delivery::immediately;
            continue;
        }
        if (arguments.isEmpty())
            return std::nullopt;
        const QString value = arguments.takeFirst();
        if (flag == QLatin1String("--object")) {
            request.notification.object = value.toStdString();
        } else if (flag == QLatin1String("--info") && value.contains(QLatin1Char('='))) {
            auto& userInfo = request.notification.userInfo;
            if (!userInfo)
                userInfo.emplace();
            (*userInfo)[value.section(QLatin1Char('='), 0, 0).toStdString()] =
                value.section(QLatin1Char('='), 1).toStdString();
        } else {
            return std::nullopt;
        }
    }
    return request;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const auto request = parse(QCoreApplication::arguments().mid(1));
    if (!request) {
        std::fputs("usage: wendlow-post-notification NAME [--object OBJECT] [--info KEY=VALUE]... "
                   "[--immediately]\n",
                   stderr);
        return 2;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    DistributedNotificationCenter(bus).post(request->notification, request->delivery);
    // The bus takes messages in order: when it has answered, the notification is out.
    const QDBusMessage answer = bus.call(QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
    return answer.type() == QDBusMessage::ReplyMessage ? 0 : 1;
}
