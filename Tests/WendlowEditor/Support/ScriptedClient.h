#pragma once

#include "Client.h"
#include "Store/Waiting.h"
#include "WireCodec.h"

#include <chrono>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace wendlow::testing {

/// A daemon whose answers the test gives when it pleases: each request waits until `answer`.
class ScriptedClient final : public WendlowClient {
public:
    // A question that is never answered holds its client, and the client the question: no leak, but
    // a daemon that says nothing. Kept in sight, it is not taken for one.
    ScriptedClient() { all().insert(this); }
    ~ScriptedClient() override { all().erase(this); }
    ScriptedClient(const ScriptedClient&) = delete;
    ScriptedClient& operator=(const ScriptedClient&) = delete;

    QCoro::Task<GatewayResponse> send(GatewayRequest request) override {
        const Timed timed = co_await sendTimed(std::move(request));
        co_return timed.response;
    }
    QCoro::Task<Timed> sendTimed(GatewayRequest request) override {
        m_sent.push_back(*WireCodec::encode(request));
        co_return co_await m_waiting;
    }

    /// Everything that was sent, as JSON.
    const std::vector<std::string>& sent() const { return m_sent; }
    bool isWaiting() const { return !m_waiting.empty(); }
    /// Answers the request that has waited longest.
    void answer(GatewayResponse response,
                std::optional<std::chrono::milliseconds> daemon = std::nullopt) {
        m_waiting.resumeFirst({.response = std::move(response), .daemon = daemon});
    }

private:
    /// Never taken down: leaks are looked for when everything else has gone.
    static std::set<const ScriptedClient*>& all() {
        static auto* const clients = new std::set<const ScriptedClient*>;
        return *clients;
    }

    std::vector<std::string> m_sent;
    Waiting<Timed> m_waiting;
};

} // namespace wendlow::testing
