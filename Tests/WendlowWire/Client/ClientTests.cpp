#include "Client.h"

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

TEST(InProcessClient, HandsManyRequestsOnAtOneTimeAndTimesNothing) {
    InProcessClient client(std::make_shared<VerbGateway>());
    auto first = client.send(ReadRequest(ReadCase::AllTime{}));
    auto second = client.sendTimed(ControlRequest(ControlCase::Pause{}));
    const auto timed = QCoro::waitFor(std::move(second));
    EXPECT_EQ(timed.response, GatewayResponse(AnswerCase::Text{"pause"}));
    EXPECT_EQ(timed.daemon, std::nullopt);
    EXPECT_EQ(QCoro::waitFor(std::move(first)),
              GatewayResponse(AnswerCase::Text{"all_time_get_totals"}));
}

TEST(InProcessClient, MayGoWhileItsGatewayStillWorks) {
    auto client = std::make_unique<InProcessClient>(std::make_shared<VerbGateway>());
    auto answer = client->send(NotesRequest(NotesCase::ListPaths{}));
    client.reset();
    EXPECT_EQ(QCoro::waitFor(std::move(answer)),
              GatewayResponse(AnswerCase::Text{"scope_list_all"}));
}

} // namespace
} // namespace wendlow
