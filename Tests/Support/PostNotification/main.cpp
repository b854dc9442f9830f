// wendlow-post-notification NAME [--object OBJECT] [--info KEY=VALUE]
//
// Posts one distributed notification on the session bus that DBUS_SESSION_BUS_ADDRESS names, and
// ends when the bus has it: 0 when it was posted, 1 without a bus.

#include "DistributedNotification.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument(u"NAME"_s, u"the notification's name"_s);
    parser.addOptions({{u"object"_s, u"what it is about"_s, u"OBJECT"_s},
                       {u"info"_s, u"what goes with it"_s, u"KEY=VALUE"_s}});
    parser.process(application);
    wendlow::DistributedNotification notification;
    notification.name = parser.positionalArguments().value(0).toStdString();
    if (parser.isSet(u"object"_s))
        notification.object = parser.value(u"object"_s).toStdString();
    if (const QString info = parser.value(u"info"_s); !info.isEmpty())
        notification.userInfo.emplace().emplace(info.section(u'=', 0, 0).toStdString(),
                                                info.section(u'=', 1).toStdString());
    QDBusConnection bus = QDBusConnection::sessionBus();
    wendlow::DistributedNotificationCenter(bus).post(notification);
    // The bus takes messages in order: when it has answered, the notification is out.
    const QDBusMessage answer = bus.call(
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"GetId"_s));
    return answer.type() == QDBusMessage::ReplyMessage ? 0 : 1;
}
