#pragma once

#include "Client.h"
#include "Store/Waiting.h"
#include "WireCodec.h"

#include <deque>
#include <string>
#include <vector>

namespace wendlow::testing {

/// A daemon whose answers the test gives when it pleases, and in whatever order.
class OrderedClient final : public WendlowClient {
public:
    QCoro::Task<GatewayResponse> send(GatewayRequest request) override {
        m_sent.push_back(*WireCodec::encode(request));
        co_return co_await m_questions.emplace_back();
    }

    /// Everything that was sent, as JSON.
    const std::vector<std::string>& sent() const { return m_sent; }
    /// Answers the question of this place in `sent`.
    void answer(std::size_t place, GatewayResponse response) {
        m_questions[place].resumeFirst(std::move(response));
    }
    /// Answers what waits, and what is asked then. A question holds its client, so that one without
    /// an answer would keep both.
    void endAll() {
        for (std::size_t place = 0; place < m_questions.size(); ++place)
            if (!m_questions[place].empty())
                answer(place, AnswerCase::Failure{"the end"});
    }

private:
    std::vector<std::string> m_sent;
    std::deque<Waiting<GatewayResponse>> m_questions; ///< which stay where they are
};

} // namespace wendlow::testing
