#pragma once

#include "Client.h"

#include <chrono>
#include <map>
#include <memory>
#include <string>

namespace wendlow::benchmarks {

/// Hands everything on to another client, counts what is asked by its verb, and adds up the time
/// that the gateway says it took.
class CountingClient final : public WendlowClient {
public:
    explicit CountingClient(std::shared_ptr<WendlowClient> client) : m_client(std::move(client)) {}

    QCoro::Task<GatewayResponse> send(GatewayRequest request) override;
    QCoro::Task<Timed> sendTimed(GatewayRequest request) override;

    void startAfresh();
    int count(std::string_view verb) const;
    /// What the answers to these say that serving them took, in whole milliseconds each.
    std::chrono::milliseconds served(std::string_view verb) const;
    /// Asked and not answered yet.
    int underWay() const { return m_underWay; }
    std::chrono::steady_clock::time_point lastAnswered() const { return m_lastAnswered; }

private:
    struct Sum {
        int count = 0;
        std::chrono::milliseconds served{0};
    };

    const std::shared_ptr<WendlowClient> m_client;
    std::map<std::string, Sum, std::less<>> m_sums;
    int m_underWay = 0;
    std::chrono::steady_clock::time_point m_lastAnswered;
};

} // namespace wendlow::benchmarks
