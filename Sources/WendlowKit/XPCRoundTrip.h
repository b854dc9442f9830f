#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

#include <QCoroTask>

#include "GatewayResponse.h"
#include "XPC/XPCConnection.h"

/// One message and what came of it.
namespace wendlow::XPCRoundTrip {

struct Answered {
    GatewayResponse response; ///< "bad reply" where the reply held none
    std::optional<std::chrono::milliseconds> daemon = std::nullopt;
    std::optional<std::int64_t> wire = std::nullopt;
};
struct TransportError {
    bool isConnections = true; ///< false: this message alone was refused
};
struct Silence {};

using Attempt = std::variant<Answered, TransportError, Silence>;

/// Does its work once, later, on a thread of its choice.
using After = std::function<void(std::chrono::milliseconds, std::function<void()>)>;

/// How long to wait for a reply, and who measures it.
struct Deadline {
    std::chrono::nanoseconds limit;
    After after;
};

/// A limit as timers take it: whole milliseconds, cut, and at least 1.
std::chrono::milliseconds timerMilliseconds(std::chrono::nanoseconds limit);

/// A request's message with its payload, or a knock, which has none.
xpc_object_t message(std::optional<std::string> payload);

/// Comes back on the caller's thread, with whatever comes first; a reply after the deadline is
/// dropped. The reply is read on the connection's queue, so that a large one holds nobody up.
QCoro::Task<Attempt> make(xpc_object_t message, xpc_connection_t connection,
                          std::optional<Deadline> deadline);

} // namespace wendlow::XPCRoundTrip
