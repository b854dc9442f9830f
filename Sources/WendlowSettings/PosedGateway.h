#pragma once

#include "Client.h"

#include <coroutine>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace wendlow {

/// A daemon with one answer to each verb, for pictures. What it has no answer to waits until it
/// gives up. One thread.
class PosedGateway final : public Gateway {
public:
    using Answers = std::map<std::string, GatewayResponse, std::less<>>;

    explicit PosedGateway(Answers answers) : m_answers(std::move(answers)) {}

    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override {
        const auto found = m_answers.find(request.verb());
        if (found != m_answers.end())
            co_return found->second;
        co_await Wait{m_waiting};
        co_return AnswerCase::Failure{"the daemon has gone"};
    }

    /// Fails what still waits. Whoever waits holds this, so both stay for ever where nobody calls
    /// it.
    void giveUp() {
        for (const std::coroutine_handle<> waiting : std::exchange(m_waiting, {}))
            waiting.resume();
    }

private:
    using Waiting = std::vector<std::coroutine_handle<>>;
    struct Wait : std::suspend_always {
        explicit Wait(Waiting& list) : waiting(list) {}
        void await_suspend(std::coroutine_handle<> coroutine) const {
            waiting.push_back(coroutine);
        }
        Waiting& waiting;
    };

    const Answers m_answers;
    Waiting m_waiting;
};

} // namespace wendlow
