#include "Client.h"

#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include <QCoroTimer>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace std::chrono_literals;

/// Answers late and with the verb, so that a test sees which request arrived and that it waited.
class VerbGateway final : public Gateway {
public:
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override {
        const std::string verb(request.verb());
        co_await QCoro::sleepFor(1ms);
        co_return AnswerCase::Text{verb};
    }
};

TEST(InProcessClient, HandsTheRequestOnAndTimesNothing) {
    InProcessClient client(std::make_shared<VerbGateway>());
    EXPECT_EQ(QCoro::waitFor(client.send(ReadRequest(ReadCase::AllTime{}))),
              GatewayResponse(AnswerCase::Text{"all_time_get_totals"}));

    const auto timed = QCoro::waitFor(client.sendTimed(ControlRequest(ControlCase::Pause{})));
    EXPECT_EQ(timed.response, GatewayResponse(AnswerCase::Text{"pause"}));
    EXPECT_EQ(timed.daemon, std::nullopt);
}

TEST(InProcessClient, MayGoWhileItsGatewayStillWorks) {
    auto client = std::make_unique<InProcessClient>(std::make_shared<VerbGateway>());
    auto answer = client->send(NotesRequest(NotesCase::ListPaths{}));
    client.reset();
    EXPECT_EQ(QCoro::waitFor(std::move(answer)),
              GatewayResponse(AnswerCase::Text{"scope_list_all"}));
}

TEST(InProcessClient, TakesManyCallsAtOneTime) {
    InProcessClient client(std::make_shared<VerbGateway>());
    auto first = client.send(ReadRequest(ReadCase::Health{}));
    auto second = client.send(DiagnosticRequest(DiagnosticCase::Log{"settings", "x"}));
    EXPECT_EQ(QCoro::waitFor(std::move(second)), GatewayResponse(AnswerCase::Text{"log"}));
    EXPECT_EQ(QCoro::waitFor(std::move(first)), GatewayResponse(AnswerCase::Text{"health"}));
}

} // namespace
} // namespace wendlow
