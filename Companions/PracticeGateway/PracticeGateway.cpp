#include "PracticeGateway.h"

#include <exception>
#include <utility>

#include <QCoroFuture>
#include <QtConcurrentRun>

#include "Dispatch.h"

namespace wendlow {

struct PracticeGateway::Rooms {
    std::tuple<> all;
};

PracticeGateway::PracticeGateway(Hooks hooks)
    : m_hooks(std::move(hooks)), m_rooms(std::make_unique<Rooms>()) {
    m_lane.setMaxThreadCount(1);
    m_lane.setExpiryTimeout(-1);
}

PracticeGateway::~PracticeGateway() {
    m_lane.waitForDone();
}

QCoro::Task<GatewayResponse> PracticeGateway::handle(GatewayRequest request) {
    const auto work = [this, request = std::move(request)] { return answer(request); };
    const QFuture<GatewayResponse> future = QtConcurrent::run(&m_lane, work);
    co_return co_await future;
}

GatewayResponse PracticeGateway::answer(const GatewayRequest& request) try {
    return Dispatch::answer(request, m_rooms->all);
} catch (const std::exception& error) {
    // A room's own mistakes and a database that went bad beneath it.
    return AnswerCase::Failure{error.what()};
}

} // namespace wendlow
