#include "SilentGateway.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace wendlow {

QCoro::Task<GatewayResponse> SilentGateway::handle(GatewayRequest /*request*/) {
    co_return co_await m_waiting;
}

void SilentGateway::waitUntilNoticed() {
    constexpr int noticeable = 400;
    for (const QDeadlineTimer limit(noticeable); !limit.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
}

} // namespace wendlow
