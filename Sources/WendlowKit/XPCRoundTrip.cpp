#include "XPCRoundTrip.h"

#include <algorithm>
#include <utility>

#include "Say.h"
#include "WireCodec.h"
#include "WireContract.h"
#include "XPC/Handover.h"
#include "XPCEndpoint.h"
#include "XPCWire.h"

namespace wendlow::XPCRoundTrip {

namespace {

GatewayResponse badReply() {
    return AnswerCase::Failure{say("bad reply")};
}

Attempt read(const xpc_object_t& reply) {
    if (const auto* const error = std::get_if<XPCError>(&reply))
        return TransportError{error->extent == XPCError::Extent::connection};
    const std::optional<std::int64_t> wire = XPCWire::wireVersion(reply);
    const std::optional<std::chrono::milliseconds> served = XPCWire::servedDuration(reply);
    const std::string* const payload = XPCWire::data(XPCEndpoint::payloadKey, reply);
    if (!payload)
        return Answered{.response = badReply(), .wire = wire};
    auto response = WireCodec::decodeResponse(*payload);
    if (!response)
        return Answered{.response = badReply(), .wire = wire};
    return Answered{.response = std::move(*response), .daemon = served, .wire = wire};
}

} // namespace

std::chrono::milliseconds timerMilliseconds(std::chrono::nanoseconds limit) {
    return std::max(std::chrono::milliseconds(1),
                    std::chrono::duration_cast<std::chrono::milliseconds>(limit));
}

xpc_object_t message(std::optional<std::string> payload) {
    xpc_object_t message = xpc_dictionary_create();
    if (payload)
        XPCWire::set(std::move(*payload), XPCEndpoint::payloadKey, message);
    XPCWire::setWire(WireContract::version, message);
    return message;
}

QCoro::Task<Attempt> make(xpc_object_t message, xpc_connection_t connection,
                          std::optional<Deadline> deadline) {
    Handover<Attempt> attempt([&](const Handover<Attempt>::Give& give) {
        if (deadline)
            deadline->after(timerMilliseconds(deadline->limit), [give] { give(Silence{}); });
        xpc_connection_send_message_with_reply(
            connection, std::move(message),
            [give](const xpc_object_t& reply) { give(read(reply)); });
    });
    co_return co_await attempt;
}

} // namespace wendlow::XPCRoundTrip
