#pragma once

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <QThreadPool>

#include "Client.h"
#include "GatewayEvent.h"

namespace wendlow {

/// A gateway over a database of its own: what the daemon would answer, without the daemon. It
/// serves a bus face and an `InProcessClient` alike. Requests are worked off in order on a thread
/// of its own.
class PracticeGateway final : public Gateway {
public:
    /// What it calls for. Called on its own thread.
    struct Hooks {
        std::function<void(GatewayEvent)> push = [](const GatewayEvent&) {};
        std::function<void()> shutDown = [] {};
    };

    explicit PracticeGateway(Hooks hooks);
    /// Waits for the requests that were taken.
    ~PracticeGateway() override;

    /// The calling thread needs an event loop; it gets the answer.
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override;

private:
    struct Rooms;

    GatewayResponse answer(const GatewayRequest& request);

    const Hooks m_hooks;
    std::unique_ptr<Rooms> m_rooms; ///< of the lane's thread
    QThreadPool m_lane;             ///< last, so that it ends first
};

} // namespace wendlow
