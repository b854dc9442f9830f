#include "GatewayCall.h"

#include <utility>

#include <QTimer>

namespace wendlow {

bool GatewayTurns::take(const std::shared_ptr<GatewayCall>& call) {
    if (m_free == 0) {
        m_waiting.push_back(call);
        return false;
    }
    --m_free;
    return true;
}

void GatewayTurns::leave(const std::shared_ptr<GatewayCall>& call) {
    if (!std::exchange(call->m_hasTurn, false)) {
        m_waiting.remove(call);
    } else if (m_waiting.empty()) {
        ++m_free;
    } else {
        const auto next = m_waiting.front();
        m_waiting.pop_front();
        next->m_hasTurn = true;
        // From the event loop, or a gateway that fails at once would nest as many as wait.
        QTimer::singleShot(0, [next] { next->wake(); });
    }
}

QCoro::Task<std::optional<GatewayResponse>> GatewayCall::ask(GatewayRequest request) {
    const auto self = shared_from_this();
    if (m_isGivenUp)
        co_return std::nullopt;
    m_hasTurn = m_turns.take(self);
    co_await Turn{*this};
    if (!m_isGivenUp) {
        m_answer.reset();
        fetch(self, std::move(request)); // ends by itself, also where nobody waits any more
        co_await Arrival{*this};
    }
    m_turns.leave(self);
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
