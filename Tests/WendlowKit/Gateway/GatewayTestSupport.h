#pragma once

#include "ControlRequest.h"
#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "XPCClient.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QTest>

#include <gtest/gtest.h>

namespace wendlow::testing {

using namespace std::chrono_literals;

inline constexpr auto patience = 20s;
inline const std::string absent = "Wendlow isn't running — start it to access your memory.";

inline GatewayRequest health() {
    return ReadRequest(ReadCase::Health{});
}

/// What a caller got, and how often it was resumed.
struct Caller {
    int resumed = 0;
    WendlowClient::Timed timed{.response = AnswerCase::Ok{}};

    /// The text of an answer or of a failure.
    std::string text() const {
        if (const auto* failure = std::get_if<AnswerCase::Failure>(&timed.response))
            return failure->message;
        const auto* text = std::get_if<AnswerCase::Text>(&timed.response);
        return text ? text->_0 : "an answer of another case";
    }
    bool failed() const { return std::holds_alternative<AnswerCase::Failure>(timed.response); }
};

/// Asks without waiting; the caller is there as long as its request may come back.
inline std::shared_ptr<Caller> ask(WendlowClient& client, GatewayRequest request = health()) {
    auto caller = std::make_shared<Caller>();
    client.sendTimed(std::move(request)).then([caller](WendlowClient::Timed timed) {
        ++caller->resumed;
        caller->timed = std::move(timed);
    });
    return caller;
}

inline bool comes(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, std::chrono::milliseconds(patience).count());
}

inline Caller answered(WendlowClient& client, GatewayRequest request = health()) {
    const auto caller = ask(client, std::move(request));
    if (!comes([&] { return caller->resumed > 0; }))
        throw std::runtime_error("the client did not answer in time");
    return *caller;
}

/// A private bus, and what the tests start on it.
class OnABus : public ::testing::Test {
protected:
    /// A gateway that gives these replies, one after the other.
    std::unique_ptr<GatewayProcess> gateway(const std::string& replies,
                                            std::vector<std::string> more = {}) const {
        more.insert(more.begin(), {"--replies", replies});
        return std::make_unique<GatewayProcess>(WENDLOW_TEST_GATEWAY, more);
    }
    /// What the gateway saw: r for a request, k for a knock, s for a subscription.
    std::string seen() const { return seen(QString::fromStdString(m_bus.address())); }
    static std::string seen(const QString& busAddress) {
        const auto name = QStringLiteral("test-observer");
        auto observer = QDBusConnection::connectToBus(busAddress, name);
        const QDBusMessage answer =
            observer.call(QDBusMessage::createMethodCall(
                              QStringLiteral("works.fenmoor.wendlow.gateway"),
                              QStringLiteral("/works/fenmoor/wendlow/test"),
                              QStringLiteral("works.fenmoor.wendlow.Test"), QStringLiteral("Seen")),
                          QDBus::Block, 1000);
        QDBusConnection::disconnectFromBus(name);
        return answer.arguments().value(0).toString().toStdString();
    }

    /// A budget that a test can sit out, and a process that no update explains.
    static XPCClient::Options options() {
        return {.clientLineage = [] { return LineageCase::Foreign{}; },
                .redial = {.budget = 400ms, .pause = 5ms}};
    }

    PrivateBus m_bus;
};

} // namespace wendlow::testing
