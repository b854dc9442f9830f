#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Client.h"
#include "ClientLineage.h"
#include "DoorFault.h"
#include "DoorRedial.h"
#include "GatewayEvent.h"
#include "XPC/XPCConnection.h"
#include "XPCEndpoint.h"
#include "XPCRoundTrip.h"

namespace wendlow {

/// The client that reaches the daemon over the person's session bus. It reconnects by itself, and
/// folds every failure into a `GatewayResponse`.
///
/// The first attempt of a request has no limit of time: who never gets an answer waits for good. A
/// failure of transport redials once for all requests that it hit, and each is tried once more,
/// within the redial's budget. An error that the gateway replies concerns the one request: those
/// beside it keep waiting, and are not sent again.
///
/// Any thread may call, and needs an event loop to be called back on; no thread is ever held up.
/// Calls in flight come to their end even when the client goes before them.
class XPCClient final : public WendlowClient {
public:
    using EventHandler = std::function<void(const GatewayEvent&)>;

    /// What is left out takes its default. The closures are called on threads of the client's own.
    struct Options {
        std::string machServiceName = std::string(XPCEndpoint::machServiceName);
        /// Makes a connection; `resume` is called by the client.
        std::function<xpc_connection_t(const std::string& machServiceName)> dial = nullptr;
        /// Called at most once in the client's life.
        std::function<void()> onWireMismatch = nullptr;
        /// Whether the name is registered; may block.
        std::function<bool(const std::string& machServiceName)> serviceRegistered = nullptr;
        /// What this process is to a daemon that refused it; may block.
        std::function<ClientLineage()> clientLineage = nullptr;
        DoorRedial redial = DoorRedial::standard;
        /// The clock of the waits.
        XPCRoundTrip::After after = nullptr;
    };

    /// Dials at once.
    XPCClient();
    explicit XPCClient(Options options);
    /// Leaves the bus; waits for a dial that is under way.
    ~XPCClient() override;

    QCoro::Task<GatewayResponse> send(GatewayRequest request) override;
    QCoro::Task<Timed> sendTimed(GatewayRequest request) override;

    /// Sets the subscriber in the place of any other, and opens a connection for events. The
    /// handler is called on that connection's queue, not on the UI thread.
    void subscribe(EventHandler onEvent);

    /// Opens a connection for events if they are wanted and none is live. Nobody but the owner
    /// calls this: the client does not reopen by itself.
    void ensureSubscribed();

    /// What the last exchange to end came to; nothing when it went well.
    std::optional<DoorFault> lastDoorFault() const;

    /// How many knocks this client has made.
    int knocks() const;

private:
    class Door;

    const std::shared_ptr<Door> m_door;
};

} // namespace wendlow
