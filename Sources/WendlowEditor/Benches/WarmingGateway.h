#pragma once

#include "Client.h"

namespace wendlow {

/// A daemon whose search index is not ready, for pictures and benches.
class WarmingGateway final : public Gateway {
public:
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;
};

} // namespace wendlow
