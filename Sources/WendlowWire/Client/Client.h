#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

#include <QCoroTask>

#include "GatewayRequest.h"
#include "GatewayResponse.h"

namespace wendlow {

/// The road to the daemon. Every failure of transport comes back as a `GatewayResponse`, so that a
/// caller has one place to look; nothing is thrown. Any thread, any number of calls at one time.
/// The client must outlive its calls.
class WendlowClient {
public:
    struct Timed {
        GatewayResponse response;
        /// How long the daemon says it served the request, where that is known.
        std::optional<std::chrono::milliseconds> daemon = std::nullopt;
    };

    WendlowClient() = default;
    WendlowClient(const WendlowClient&) = delete;
    WendlowClient& operator=(const WendlowClient&) = delete;
    virtual ~WendlowClient();

    virtual QCoro::Task<GatewayResponse> send(GatewayRequest request) = 0;
    /// Where a client knows no times: the answer of `send` alone.
    virtual QCoro::Task<Timed> sendTimed(GatewayRequest request);
};

/// The answering side.
class Gateway {
public:
    Gateway() = default;
    Gateway(const Gateway&) = delete;
    Gateway& operator=(const Gateway&) = delete;
    virtual ~Gateway();

    /// Never throws: what cannot be done is a `failure` in words or `unimplemented`.
    virtual QCoro::Task<GatewayResponse> handle(GatewayRequest request) = 0;
};

/// A client over a gateway in the same process; nothing is encoded in between.
class InProcessClient final : public WendlowClient {
public:
    explicit InProcessClient(std::shared_ptr<Gateway> gateway) : m_gateway(std::move(gateway)) {}

    QCoro::Task<GatewayResponse> send(GatewayRequest request) override;

private:
    std::shared_ptr<Gateway> m_gateway;
};

} // namespace wendlow
