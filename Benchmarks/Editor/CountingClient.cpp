#include "CountingClient.h"

#include <utility>

namespace wendlow::benchmarks {

QCoro::Task<GatewayResponse> CountingClient::send(GatewayRequest request) {
    Timed timed = co_await sendTimed(std::move(request));
    co_return std::move(timed.response);
}

QCoro::Task<WendlowClient::Timed> CountingClient::sendTimed(GatewayRequest request) {
    const std::string verb(request.verb());
    ++m_sums[verb].count;
    ++m_underWay;
    Timed timed = co_await m_client->sendTimed(std::move(request));
    --m_underWay;
    m_lastAnswered = std::chrono::steady_clock::now();
    m_sums[verb].served += timed.daemon.value_or(std::chrono::milliseconds(0));
    co_return timed;
}

void CountingClient::startAfresh() {
    m_sums.clear();
}

int CountingClient::count(std::string_view verb) const {
    const auto found = m_sums.find(verb);
    return found == m_sums.end() ? 0 : found->second.count;
}

std::chrono::milliseconds CountingClient::served(std::string_view verb) const {
    const auto found = m_sums.find(verb);
    return found == m_sums.end() ? std::chrono::milliseconds(0) : found->second.served;
}

} // namespace wendlow::benchmarks
