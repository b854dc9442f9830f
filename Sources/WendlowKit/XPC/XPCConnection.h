#pragma once

#include <functional>
#include <memory>
#include <string>

#include "XPC/XPCObject.h"

namespace wendlow {

class DispatchQueue;

/// A way to a named service: one reply for each request, and events that the service sends by
/// itself. It connects in the background when it is resumed; what is sent before waits for that.
/// Any thread.
class XPCConnection {
public:
    using Handler = std::function<void(xpc_object_t)>;

    XPCConnection() = default;
    XPCConnection(const XPCConnection&) = delete;
    XPCConnection& operator=(const XPCConnection&) = delete;
    /// The same as `cancel`.
    virtual ~XPCConnection() = default;

    virtual void setEventHandler(Handler handler) = 0;
    virtual void resume() = 0;
    virtual void cancel() = 0;
    virtual void send(xpc_object_t message) = 0;
    virtual void sendWithReply(xpc_object_t message, Handler handler) = 0;
};

using xpc_connection_t = std::shared_ptr<XPCConnection>;

/// A connection to the process that owns this name on the person's session bus. Returns at once;
/// no bus and no owner are found out later, as errors. Handlers are called on `targetQueue`, or on
/// a queue of the connection's own.
xpc_connection_t
xpc_connection_create_mach_service(const std::string& name,
                                   std::shared_ptr<DispatchQueue> targetQueue = nullptr);

/// Before `resume`. The handler gets the service's events, and one error when the service or the
/// bus has gone, or was not there in the first place. A connection without a handler hears nothing.
void xpc_connection_set_event_handler(const xpc_connection_t& connection,
                                      XPCConnection::Handler handler);

void xpc_connection_resume(const xpc_connection_t& connection);

/// Every reply that is still waited for becomes an error, and so does whatever is sent later. No
/// event arrives any more, and the event handler is let go of.
void xpc_connection_cancel(const xpc_connection_t& connection);

void xpc_connection_send_message(const xpc_connection_t& connection, xpc_object_t message);

/// The handler is called exactly once, with the reply or an error; however long that takes.
void xpc_connection_send_message_with_reply(const xpc_connection_t& connection,
                                            xpc_object_t message, XPCConnection::Handler handler);

} // namespace wendlow
