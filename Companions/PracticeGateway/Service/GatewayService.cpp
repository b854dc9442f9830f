#include "Service/GatewayService.h"

#include <chrono>
#include <csignal>
#include <utility>

#include <QCoroTimer>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QPointer>
#include <fmt/format.h>

#include "GatewayWire.h"
#include "WireCodec.h"
#include "XPC/BusMessage.h"
#include "XPCEndpoint.h"

namespace wendlow {

namespace {

using Stopwatch = std::chrono::steady_clock;

QString key(std::string_view name) {
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

const QString payloadKey = key(XPCEndpoint::payloadKey);
const QString wireKey = key(XPCEndpoint::wireKey);
const QString servedKey = key(XPCEndpoint::servedKey);
const QString subscribeKey = key(XPCEndpoint::subscribeKey);
const QString eventKey = key(XPCEndpoint::eventKey);

/// A list of bytes may be 64 MiB on a bus, and the bus cuts off whoever sends a longer one.
constexpr std::size_t longestPayload = std::size_t{64} << 20U;

const QByteArray full = R"({"frontState":{"_0":"full"}})";
const QByteArray none = R"({"frontState":{"_0":"none"}})";

QByteArray bytes(const std::string& text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

/// What is wrong with the types of a request, or nothing.
const char* complaint(const QVariantMap& message) {
    const auto isOther = [&](const QString& key, int type) {
        return message.contains(key) && message.value(key).typeId() != type;
    };
    if (isOther(payloadKey, QMetaType::QByteArray))
        return "payload is to be a list of bytes, ay";
    if (isOther(wireKey, QMetaType::ULongLong))
        return "wire is to be a number without a sign, t";
    return nullptr;
}

/// The request in a message, or the answer that a message without one gets.
std::expected<GatewayRequest, GatewayResponse> requestIn(const QVariantMap& message) {
    if (const char* const sentence = complaint(message))
        return std::unexpected(AnswerCase::Failure{sentence});
    const auto wire = message.contains(wireKey)
                          ? std::optional<std::uint64_t>(message.value(wireKey).toULongLong())
                          : std::nullopt;
    if (WireContract::verdict(WireContract::version, wire) == WireContract::Verdict::mismatch)
        return std::unexpected(AnswerCase::Failure{std::string(WireContract::mismatchMessage)});
    const QByteArray payload = message.value(payloadKey).toByteArray();
    auto request =
        WireCodec::decodeRequest({payload.constData(), static_cast<std::size_t>(payload.size())});
    if (!request) // by these words a client tells a gateway that is older than its request
        return std::unexpected(AnswerCase::Failure{std::string(GatewayWire::malformedRequest)});
    return std::move(*request);
}

/// An answer that cannot be said, or not on a bus, is a failure in words.
std::string encoded(const GatewayResponse& response) {
    auto json = WireCodec::encode(response);
    if (json && json->size() < longestPayload)
        return std::move(*json);
    const std::string sentence =
        json ? fmt::format("the answer has {} bytes, more than a bus carries", json->size())
             : fmt::format("{}: {}", json.error().path, json.error().sentence);
    return WireCodec::encode(GatewayResponse(AnswerCase::Failure{sentence})).value_or("");
}

/// The JSON of the answer to a message. Nothing of the face is touched, which may be gone
/// meanwhile.
QCoro::Task<std::string> answer(std::shared_ptr<Gateway> gateway, QVariantMap message) {
    auto request = requestIn(message);
    if (!request)
        co_return encoded(request.error());
    const GatewayResponse response = co_await gateway->handle(std::move(*request));
    co_return encoded(response);
}

} // namespace

GatewayService::GatewayService(std::shared_ptr<Gateway> gateway, QDBusConnection bus,
                               Misbehaviour misbehaviour)
    : m_gateway(std::move(gateway)), m_bus(std::move(bus)),
      m_misbehaviour(std::move(misbehaviour)) {
    m_departures.setConnection(m_bus);
    m_departures.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_departures, &QDBusServiceWatcher::serviceUnregistered, this,
            [this](const QString& subscriber) {
                m_departures.removeWatchedService(subscriber);
                m_subscribers.remove(subscriber);
            });
    m_bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                  QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                  this, SIGNAL(lost()));
}

GatewayService::~GatewayService() = default;

std::expected<void, std::string> GatewayService::start(const std::string& name) {
    if (!m_bus.isConnected())
        return std::unexpected("there is no session bus here");
    // Before the name, so that nobody finds the name without the object.
    m_bus.registerObject(BusMessage::path, this,
                         QDBusConnection::ExportScriptableSlots |
                             QDBusConnection::ExportScriptableSignals);
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> taken =
        m_bus.interface()->registerService(QString::fromStdString(name));
    if (!taken.isValid())
        return std::unexpected(fmt::format("the bus does not give the name {}: {}", name,
                                           taken.error().message().toStdString()));
    if (taken.value() != QDBusConnectionInterface::ServiceRegistered)
        return std::unexpected(
            fmt::format("the name {} is taken: another gateway is running", name));
    return {};
}

QVariantMap GatewayService::Exchange(const QVariantMap& message, const QDBusMessage& call) {
    call.setDelayedReply(true);
    if (message.value(subscribeKey).toBool()) {
        m_watcher(call.isReplyRequired() ? '?' : 's');
        subscribe(call);
    } else {
        m_watcher(message.contains(payloadKey) ? 'r' : 'k');
        exchange(call, message, nextManner(message)); // ends by itself, whoever waits for it
    }
    return {};
}

ReplyManner GatewayService::nextManner(const QVariantMap& message) {
    if (!message.contains(payloadKey))
        return m_misbehaviour.knockReply;
    const ReplyManner manner = m_misbehaviour.replies.front();
    if (m_misbehaviour.replies.size() > 1)
        m_misbehaviour.replies.erase(m_misbehaviour.replies.begin());
    return manner;
}

QCoro::Task<> GatewayService::exchange(QDBusMessage call, QVariantMap message, ReplyManner manner) {
    const QPointer<GatewayService> self(this);
    if (manner.way == ReplyManner::Way::die)
        ::raise(SIGKILL);
    QVariantMap reply;
    if (manner.wire)
        reply.insert(wireKey, QVariant::fromValue<qulonglong>(*manner.wire));
    if (message.contains(payloadKey)) {
        const auto started = Stopwatch::now();
        std::string json = co_await answer(m_gateway, std::move(message));
        const auto served =
            std::chrono::floor<std::chrono::milliseconds>(Stopwatch::now() - started);
        reply.insert(servedKey, static_cast<qulonglong>(served.count()));
        if (manner.payload != ReplyManner::Payload::absent)
            reply.insert(payloadKey, bytes(manner.payloadFor(std::move(json))));
        if (manner.payload == ReplyManner::Payload::wrongTypes)
            reply = {{payloadKey, QString::fromUtf8(reply[payloadKey].toByteArray())},
                     {wireKey, 1}};
    }
    if (manner.delay > std::chrono::milliseconds::zero())
        co_await QCoro::sleepFor(manner.delay);
    if (!self || manner.way == ReplyManner::Way::silent || !call.isReplyRequired())
        co_return;
    if (manner.way == ReplyManner::Way::refuse)
        // By the name that the bus's own library gives to a wait that was too long: whatever its
        // name, an error that a peer sends is an error.
        m_bus.send(call.createErrorReply(QDBusError::NoReply,
                                         QStringLiteral("this gateway was told to refuse")));
    else if (manner.payload == ReplyManner::Payload::noDictionary)
        m_bus.send(call.createReply(QStringLiteral("no dictionary")));
    else
        m_bus.send(call.createReply(reply));
}

void GatewayService::subscribe(const QDBusMessage& call) {
    if (call.isReplyRequired())
        m_bus.send(call.createReply(QVariantMap()));
    const QString subscriber = call.service();
    m_subscribers.insert(subscriber);
    m_departures.addWatchedService(subscriber);
    if (m_misbehaviour.flood > 0) {
        send(subscriber, QStringLiteral("no dictionary"));
        send(subscriber, QVariantMap{{eventKey, QByteArray()}});
        send(subscriber, QVariantMap{{eventKey, QByteArray("{")}});
    }
    for (std::uint64_t sent = 1; sent <= m_misbehaviour.flood; ++sent)
        send(subscriber, QVariantMap{{eventKey, sent < m_misbehaviour.flood ? full : none}});
}

void GatewayService::push(const GatewayEvent& event) {
    const auto json = WireCodec::encode(event);
    if (!json)
        return;
    for (const QString& subscriber : std::as_const(m_subscribers))
        send(subscriber, QVariantMap{{eventKey, bytes(*json)}});
}

void GatewayService::send(const QString& subscriber, const QVariant& argument) const {
    QDBusMessage signal = QDBusMessage::createTargetedSignal(
        subscriber, BusMessage::path, BusMessage::interface, BusMessage::eventMember);
    signal << argument;
    m_bus.send(signal);
}

} // namespace wendlow

#include "moc_GatewayService.cpp"
