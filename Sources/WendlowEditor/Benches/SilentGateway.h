#pragma once

#include "Client.h"
#include "Store/Waiting.h"

namespace wendlow {

/// A daemon that never gets round to an answer, for pictures. Whoever waits is answered as it goes.
class SilentGateway final : public Gateway {
public:
    ~SilentGateway() override { m_waiting.resumeAll(AnswerCase::Failure{"gone"}); }
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;

    /// That something takes long is shown only once it does: runs the event loop until then.
    static void waitUntilNoticed();

private:
    Waiting<GatewayResponse> m_waiting;
};

} // namespace wendlow
