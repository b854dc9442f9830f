// editor-recording-gateway NAME BEHIND: owns NAME on the bus and hands every exchange on to the
// gateway that owns BEHIND. What it was asked before it answers from memory, at once: so what an
// exchange costs then is all but the gateway's own work.

#include "SessionBusAddress.h"
#include "XPC/BusMessage.h"
#include "XPCEndpoint.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QHash>
#include <QObject>

#include <iostream>
#include <utility>

namespace wendlow::benchmarks {

class RecordingGateway : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "works.fenmoor.wendlow.Gateway")

public:
    RecordingGateway(QDBusConnection bus, QString behind)
        : m_bus(std::move(bus)), m_behind(std::move(behind)) {}

public Q_SLOTS:
    Q_SCRIPTABLE QVariantMap Exchange(const QVariantMap& message, const QDBusMessage& call) {
        const QByteArray payload = message.value(m_payloadKey).toByteArray();
        if (const auto known = m_replies.constFind(payload); known != m_replies.cend())
            return *known;
        call.setDelayedReply(true);
        ++m_handedOn;
        QDBusMessage question = QDBusMessage::createMethodCall(
            m_behind, BusMessage::path, BusMessage::interface, QStringLiteral("Exchange"));
        question << message;
        auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, call, payload] {
            watcher->deleteLater();
            QVariantMap reply = QDBusPendingReply<QVariantMap>(*watcher).value();
            m_bus.send(call.createReply(reply));
            // Told from memory it costs the gateway nothing.
            reply.insert(m_servedKey, qulonglong{0});
            m_replies.insert(payload, reply);
        });
        return {};
    }
    /// How many exchanges were not told from memory.
    Q_SCRIPTABLE int HandedOn() const { return m_handedOn; }

private:
    const QString m_payloadKey = QString::fromLatin1(XPCEndpoint::payloadKey);
    const QString m_servedKey = QString::fromLatin1(XPCEndpoint::servedKey);
    QDBusConnection m_bus;
    const QString m_behind;
    QHash<QByteArray, QVariantMap> m_replies;
    int m_handedOn = 0;
};

} // namespace wendlow::benchmarks

int main(int count, char** words) {
    using namespace wendlow;
    const QCoreApplication application(count, words);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    auto bus = QDBusConnection::connectToBus(sessionBusAddress(), QStringLiteral("recording"));
    benchmarks::RecordingGateway gateway(bus, arguments[2]);
    if (!bus.registerObject(BusMessage::path, &gateway, QDBusConnection::ExportScriptableSlots) ||
        !bus.registerService(arguments[1]))
        return 1;
    std::cout << "ready" << std::endl;
    return QCoreApplication::exec();
}

#include "RecordingGateway.moc"
