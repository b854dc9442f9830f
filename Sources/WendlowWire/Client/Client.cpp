#include "Client.h"

namespace wendlow {

WendlowClient::~WendlowClient() = default;

QCoro::Task<WendlowClient::Timed> WendlowClient::sendTimed(GatewayRequest request) {
    // On a line of its own: GCC 12 destroys an aggregate twice that is built around co_await.
    GatewayResponse response = co_await send(std::move(request));
    co_return Timed{.response = std::move(response)};
}

Gateway::~Gateway() = default;

QCoro::Task<GatewayResponse> InProcessClient::send(GatewayRequest request) {
    // Held here too: the client may go while its gateway still works on the answer.
    const std::shared_ptr<Gateway> gateway = m_gateway;
    co_return co_await gateway->handle(std::move(request));
}

} // namespace wendlow
