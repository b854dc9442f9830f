#include "GatewayCall.h"

#include <utility>

namespace wendlow {

QCoro::Task<std::optional<GatewayResponse>> GatewayCall::ask(GatewayRequest request) {
    const auto self = shared_from_this();
    if (m_isGivenUp)
        co_return std::nullopt;
    m_answer.reset();
    fetch(self, std::move(request)); // ends by itself, also where nobody waits any more
    co_await Arrival{*this};
    if (m_isGivenUp)
        co_return std::nullopt;
    co_return std::exchange(m_answer, std::nullopt);
}

QCoro::Task<> GatewayCall::fetch(std::shared_ptr<GatewayCall> call, GatewayRequest request) {
    GatewayResponse answer = co_await call->m_door().send(std::move(request));
    call->m_answer = std::move(answer);
    call->wake();
}

void GatewayCall::giveUp() {
    m_isGivenUp = true;
    wake();
}

void GatewayCall::wake() {
    if (const auto waiter = std::exchange(m_waiter, nullptr))
        waiter.resume();
}

} // namespace wendlow
