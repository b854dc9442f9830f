// wendlow-test-gateway [--replies A,B,C] [--knocks A] [--events N]
//
// Owns the gateway's name on the bus that DBUS_SESSION_BUS_ADDRESS names, prints "ready", and gives
// the first request the reply A, the second B, and so on; the last is given for good. See `replyOf`
// for the replies. `--events` are sent to whoever subscribes, after three that are no events.

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QTimer>

#include <iostream>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString path = u"/works/fenmoor/wendlow/gateway"_s;
const QString interfaceName = u"works.fenmoor.wendlow.Gateway"_s;
const QByteArray healthy = R"({"text":{"_0":"healthy"}})";

QVariantMap with(const QVariant& payload, const QVariant& wire = qulonglong{1}) {
    return {{u"payload"_s, payload}, {u"wire"_s, wire}, {u"served_ms"_s, qulonglong{7}}};
}

QVariantMap replyOf(const QString& kind) {
    if (kind == u"nopayload")
        return {{u"wire"_s, qulonglong{1}}};
    if (kind == u"wireless")
        return {{u"payload"_s, healthy}};
    if (kind == u"wrongtypes")
        return with(QString::fromUtf8(healthy), 1);
    if (kind == u"big")
        return with(R"({"text":{"_0":")" + QByteArray(20'000'000, 'x') + R"("}})");
    if (kind == u"deep")
        return with(R"({"text":{"_0":)" + QByteArray(10'000, '[') + QByteArray(10'000, ']') + "}}");
    const QHash<QString, QVariantMap> others = {
        {u"answer"_s, with(healthy)},
        {u"empty"_s, with(QByteArray())},
        {u"rubbish"_s, with(QByteArray("\xff\x00 not JSON", 11))},
        {u"cut"_s, with(healthy.chopped(4))},
        {u"unknown"_s, with(QByteArray(R"({"weather":{}})"))},
        {u"wire0"_s, with(healthy, qulonglong{0})},
        {u"wire2"_s, with(healthy, qulonglong{2})},
        {u"wire2rubbish"_s, with(QByteArray("?"), qulonglong{2})}};
    return others.value(kind);
}

} // namespace

class TestGateway : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "works.fenmoor.wendlow.Gateway")

public:
    TestGateway(QStringList replies, QString knocks, int events)
        : m_replies(std::move(replies)), m_knockReply(std::move(knocks)), m_events(events) {}

public Q_SLOTS:
    Q_SCRIPTABLE void Exchange(const QVariantMap& message, const QDBusMessage& call) {
        call.setDelayedReply(true);
        if (message.contains(u"subscribe"_s)) {
            m_seen += call.isReplyRequired() ? u'?' : u's';
            push(call.service());
        } else if (message.contains(u"payload"_s)) {
            m_seen += u'r';
            const QString kind = m_replies.constFirst();
            if (m_replies.size() > 1)
                m_replies.removeFirst();
            reply(call, kind);
        } else {
            m_seen += u'k';
            reply(call, m_knockReply);
        }
    }
    /// The bare round trip that the client is measured against.
    Q_SCRIPTABLE QVariantMap Echo(const QVariantMap& message) { return message; }
    /// A letter for each message so far: r, k or s.
    Q_SCRIPTABLE QString Seen() const { return m_seen; }

private:
    void reply(const QDBusMessage& call, const QString& kind) {
        const QDBusConnection bus = QDBusConnection::sessionBus();
        if (kind == u"silent")
            return;
        if (kind == u"die")
            ::_exit(1);
        if (kind == u"error")
            bus.send(call.createErrorReply(u"org.freedesktop.DBus.Error.NoReply"_s, u"no"_s));
        else if (kind == u"string")
            bus.send(call.createReply(u"{}"_s));
        else if (kind.startsWith(u"after")) // so many milliseconds
            QTimer::singleShot(kind.mid(5).toInt(), this,
                               [this, call] { reply(call, u"answer"_s); });
        else
            bus.send(call.createReply(replyOf(kind)));
    }

    void push(const QString& subscriber) {
        const auto send = [&](const QVariant& argument) {
            QDBusMessage event =
                QDBusMessage::createTargetedSignal(subscriber, path, interfaceName, u"Event"_s);
            event << argument;
            QDBusConnection::sessionBus().send(event);
        };
        send(u"no dictionary"_s);
        send(QVariantMap{{u"event"_s, QByteArray()}});
        send(QVariantMap{{u"event"_s, QByteArray("{")}});
        for (int count = 0; count < m_events; ++count)
            send(QVariantMap{{u"event"_s, QByteArray(count + 1 == m_events
                                                         ? R"({"frontState":{"_0":"none"}})"
                                                         : R"({"frontState":{"_0":"full"}})")}});
    }

    QStringList m_replies;
    const QString m_knockReply;
    const int m_events;
    QString m_seen;
};

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"replies"_s, u"one for each request"_s, u"KINDS"_s, u"answer"_s},
                       {u"knocks"_s, u"the reply to a knock"_s, u"KIND"_s, u"nopayload"_s},
                       {u"events"_s, u"how many a subscriber gets"_s, u"N"_s, u"0"_s}});
    parser.process(application);
    TestGateway gateway(parser.value(u"replies"_s).split(u','), parser.value(u"knocks"_s),
                        parser.value(u"events"_s).toInt());
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(path, &gateway, QDBusConnection::ExportScriptableSlots) ||
        !bus.registerService(u"works.fenmoor.wendlow.gateway"_s))
        return 1;
    std::cout << "ready" << std::endl;
    return QCoreApplication::exec();
}

#include "main.moc"
