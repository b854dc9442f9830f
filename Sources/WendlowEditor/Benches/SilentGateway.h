#pragma once

#include "Client.h"
#include "Store/Waiting.h"

namespace wendlow {

/// A daemon that never gets round to an answer, for pictures.
class SilentGateway final : public Gateway {
public:
    /// Whoever waits is answered. What waits holds the gateway, so that one of them has to end.
    void giveUp() { m_waiting.resumeAll(AnswerCase::Failure{"gone"}); }
    ~SilentGateway() override { giveUp(); }
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;

    /// That something takes long is shown only once it does: runs the event loop until then.
    static void waitUntilNoticed();

private:
    Waiting<GatewayResponse> m_waiting;
};

} // namespace wendlow
