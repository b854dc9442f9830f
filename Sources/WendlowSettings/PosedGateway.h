#pragma once

#include "Client.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace wendlow {

/// A daemon with one answer to each verb, for pictures. What it has no answer to it never answers.
class PosedGateway final : public Gateway {
public:
    using Answers = std::map<std::string, GatewayResponse, std::less<>>;

    explicit PosedGateway(Answers answers) : m_answers(std::move(answers)) {}

    static std::shared_ptr<WendlowClient> client(Answers answers) {
        return std::make_shared<InProcessClient>(
            std::make_shared<PosedGateway>(std::move(answers)));
    }

    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override {
        const auto found = m_answers.find(request.verb());
        if (found == m_answers.end())
            co_await std::suspend_always();
        co_return found->second;
    }

private:
    const Answers m_answers;
};

} // namespace wendlow
