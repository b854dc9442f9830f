#pragma once

#include "Client.h"

namespace wendlow {

/// The gateway of a run that is to speak to no daemon, as when pictures are taken: it refuses each
/// request by its verb, which a caller treats as that one request being refused.
class UnimplementedGateway final : public Gateway {
public:
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;
};

} // namespace wendlow
