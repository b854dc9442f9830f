#include "ApplicationSeat.h"

#include "ClientInstance.h"
#include "DistributedNotification.h"
#include "Say.h"

#include <QDBusMessage>
#include <QDBusReply>

#include <utility>

namespace wendlow {

namespace {

using namespace std::chrono_literals;

/// With the bus itself, which is known to answer: on a machine that is busy it may take its time,
/// and a start that gave up would be a second process.
constexpr auto patience = 10s;

const QString busName = QStringLiteral("org.freedesktop.DBus");
const QString path = QStringLiteral("/works/fenmoor/wendlow/application");
const QString interface = QStringLiteral("works.fenmoor.wendlow.Application");

QString seat() {
    return QString::fromUtf8(ClientInstance::settingsID);
}

QDBusMessage busCall(const QString& method) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        busName, QStringLiteral("/org/freedesktop/DBus"), busName, method);
    call << seat();
    return call;
}

QDBusMessage takeCall() {
    constexpr uint doNotQueue = 4;
    QDBusMessage call = busCall(QStringLiteral("RequestName"));
    call << doNotQueue;
    return call;
}

QDBusMessage exchange(const QDBusConnection& bus, const QDBusMessage& call,
                      std::chrono::milliseconds limit) {
    return bus.call(call, QDBus::Block, static_cast<int>(limit.count()));
}

/// The connection that has the seat; empty: none.
QString owner(const QDBusConnection& bus) {
    const QDBusReply<QString> reply =
        exchange(bus, busCall(QStringLiteral("GetNameOwner")), patience);
    return reply.isValid() ? reply.value() : QString();
}

DistributedNotification request(WindowDoor::Pane pane,
                                const std::optional<std::string>& settingsPane) {
    auto info = WindowDoor::userInfo(WindowDoor::Front::bring);
    if (settingsPane)
        info->emplace(WindowDoor::settingsPaneKey, *settingsPane);
    return {.name = std::string(WindowDoor::notification),
            .object = std::string(WindowDoor::text(pane)),
            .userInfo = std::move(info)};
}

} // namespace

ApplicationSeat::ApplicationSeat(QObject* parent) : QObject(parent) {}

ApplicationSeat::Taken ApplicationSeat::take(QDBusConnection bus) {
    // Before the name is ours: who finds it taken calls at once.
    bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    const QDBusReply<uint> reply = exchange(bus, takeCall(), patience);
    constexpr uint primaryOwner = 1;
    constexpr uint alreadyOwner = 4;
    if (!reply.isValid())
        return Taken::never;
    return reply.value() == primaryOwner || reply.value() == alreadyOwner ? Taken::ours
                                                                          : Taken::others;
}

std::string ApplicationSeat::unheardSentence() {
    return say("Wendlow runs already, and does not answer; end it, and start it again");
}

void ApplicationSeat::takeLater(QDBusConnection bus) {
    bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    bus.asyncCall(takeCall());
}

void ApplicationSeat::StartedAgain(bool namesWindow) {
    if (!namesWindow && m_told)
        m_told();
}

ApplicationSeat::Heard ApplicationSeat::ask(const QDBusConnection& bus, const Wish& wish,
                                            std::chrono::milliseconds limit) {
    const QString asked = owner(bus);
    if (asked.isEmpty())
        return Heard::nobody;
    if (wish.pane)
        DistributedNotificationCenter(bus).post(
            request(*wish.pane, wish.settingsPane),
            DistributedNotificationCenter::Delivery::immediately);
    // To the connection, not to the name: another process may have that by the time of the call.
    QDBusMessage call =
        QDBusMessage::createMethodCall(asked, path, interface, QStringLiteral("StartedAgain"));
    call << wish.pane.has_value();
    call.setAutoStartService(false);
    if (exchange(bus, call, limit).type() == QDBusMessage::ReplyMessage)
        return Heard::yes;
    return owner(bus) == asked ? Heard::silent : Heard::nobody;
}

} // namespace wendlow

#include "moc_ApplicationSeat.cpp"
