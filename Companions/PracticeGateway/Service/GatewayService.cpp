#include "Service/GatewayService.h"

#include <chrono>
#include <csignal>
#include <utility>

#include <QCoroTimer>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QPointer>
#include <fmt/format.h>

#include "WireCodec.h"

namespace wendlow {

namespace {

using Clock = std::chrono::steady_clock;

const QString path = QStringLiteral("/works/fenmoor/wendlow/gateway");
const QString interface = QStringLiteral("works.fenmoor.wendlow.Gateway");
const QString payloadKey = QStringLiteral("payload");
const QString wireKey = QStringLiteral("wire");
const QString servedKey = QStringLiteral("served_ms");
const QString subscribeKey = QStringLiteral("subscribe");
const QString eventKey = QStringLiteral("event");

/// A list of bytes may be 64 MiB on a bus, and the bus cuts off whoever sends a longer one.
constexpr std::size_t longestPayload = std::size_t{64} << 20U;

QByteArray bytes(const std::string& text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

/// What is wrong with a message, or nothing.
const char* complaint(const QVariantMap& message) {
    const auto isOther = [&](const QString& key, int type) {
        return message.contains(key) && message.value(key).typeId() != type;
    };
    if (isOther(payloadKey, QMetaType::QByteArray))
        return "payload is to be a list of bytes, ay";
    if (isOther(wireKey, QMetaType::ULongLong))
        return "wire is to be a number without a sign, t";
    if (isOther(subscribeKey, QMetaType::Bool))
        return "subscribe is to be a boolean, b";
    return nullptr;
}

/// The request in a message, or the answer that a message without one gets.
std::expected<GatewayRequest, GatewayResponse> requestIn(const QVariantMap& message) {
    const auto wire = message.contains(wireKey)
                          ? std::optional<std::uint64_t>(message.value(wireKey).toULongLong())
                          : std::nullopt;
    if (WireContract::verdict(WireContract::version, wire) == WireContract::Verdict::mismatch)
        return std::unexpected(AnswerCase::Failure{std::string(WireContract::mismatchMessage)});
    const QByteArray payload = message.value(payloadKey).toByteArray();
    auto request =
        WireCodec::decodeRequest({payload.constData(), static_cast<std::size_t>(payload.size())});
    if (!request)
        return std::unexpected(AnswerCase::Failure{request.error().sentence});
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

} // namespace

GatewayService::GatewayService(std::shared_ptr<Gateway> gateway, QDBusConnection bus,
                               Misbehaviour misbehaviour)
    : m_gateway(std::move(gateway)), m_bus(std::move(bus)), m_misbehaviour(misbehaviour) {
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
    m_bus.registerObject(path, this,
                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
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

void GatewayService::push(const GatewayEvent& event) {
    for (const QString& subscriber : std::as_const(m_subscribers))
        send(subscriber, event);
}

QVariantMap GatewayService::Exchange(const QVariantMap& message, const QDBusMessage& call) {
    call.setDelayedReply(true);
    if (const char* const sentence = complaint(message)) {
        m_bus.send(call.createErrorReply(QDBusError::InvalidArgs, QString::fromUtf8(sentence)));
    } else if (message.value(subscribeKey).toBool()) {
        subscribe(call.service());
        if (call.isReplyRequired())
            m_bus.send(call.createReply(QVariantMap()));
    } else if (!message.contains(payloadKey)) {
        reply(call, std::nullopt, Clock::duration::zero()); // a knock
    } else if (m_misbehaviour.requestsInLife == m_requests) {
        ::raise(SIGKILL);
    } else if (++m_requests <= m_misbehaviour.refusals) {
        m_bus.send(call.createErrorReply(QDBusError::AccessDenied,
                                         QStringLiteral("this gateway refuses as it was told")));
    } else {
        answer(call, message); // ends by itself, whoever waits for it
    }
    return {};
}

QCoro::Task<> GatewayService::answer(QDBusMessage call, QVariantMap message) {
    const QPointer<GatewayService> self(this);
    const std::shared_ptr<Gateway> gateway = m_gateway;
    const auto started = Clock::now();
    auto request = requestIn(message);
    std::string json;
    if (request) {
        const GatewayResponse response = co_await gateway->handle(std::move(*request));
        json = encoded(response);
    } else {
        json = encoded(request.error());
    }
    if (self)
        reply(call, std::move(json), Clock::now() - started);
}

QCoro::Task<> GatewayService::reply(QDBusMessage call, std::optional<std::string> json,
                                    Clock::duration served) {
    const QPointer<GatewayService> self(this);
    if (m_misbehaviour.isSilent || !call.isReplyRequired())
        co_return;
    QVariantMap message;
    if (m_misbehaviour.wire)
        message.insert(wireKey, QVariant::fromValue<qulonglong>(*m_misbehaviour.wire));
    if (json) {
        const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(served);
        message.insert(servedKey, static_cast<qulonglong>(whole.count()));
        if (const auto payload = m_misbehaviour.replyTo(std::move(*json)))
            message.insert(payloadKey, bytes(*payload));
    }
    if (m_misbehaviour.delay > std::chrono::milliseconds::zero())
        co_await QCoro::sleepFor(m_misbehaviour.delay);
    if (self)
        m_bus.send(call.createReply(message));
}

void GatewayService::subscribe(const QString& subscriber) {
    m_subscribers.insert(subscriber);
    m_departures.addWatchedService(subscriber);
    for (std::uint64_t sent = 0; sent < m_misbehaviour.flood; ++sent)
        send(subscriber, EventCase::FrontState{sent % 2 == 0 ? FrontRecording::full
                                                             : FrontRecording::blocked});
}

void GatewayService::send(const QString& subscriber, const GatewayEvent& event) const {
    const auto json = WireCodec::encode(event);
    if (!json)
        return;
    QDBusMessage signal =
        QDBusMessage::createTargetedSignal(subscriber, path, interface, QStringLiteral("Event"));
    signal << QVariantMap{{eventKey, bytes(*json)}};
    m_bus.send(signal);
}

} // namespace wendlow
