#include "XPC/XPCConnection.h"

#include <utility>

#include "XPC/BusConnection.h"
#include "XPC/DispatchQueue.h"

namespace wendlow {

xpc_connection_t xpc_connection_create_mach_service(const std::string& name,
                                                    std::shared_ptr<DispatchQueue> targetQueue) {
    if (!targetQueue)
        targetQueue = std::make_shared<DispatchQueue>();
    return std::make_shared<BusConnection>(name, std::move(targetQueue));
}

void xpc_connection_set_event_handler(const xpc_connection_t& connection,
                                      XPCConnection::Handler handler) {
    connection->setEventHandler(std::move(handler));
}

void xpc_connection_resume(const xpc_connection_t& connection) {
    connection->resume();
}

void xpc_connection_cancel(const xpc_connection_t& connection) {
    connection->cancel();
}

void xpc_connection_send_message(const xpc_connection_t& connection, xpc_object_t message) {
    connection->send(std::move(message));
}

void xpc_connection_send_message_with_reply(const xpc_connection_t& connection,
                                            xpc_object_t message, XPCConnection::Handler handler) {
    connection->sendWithReply(std::move(message), std::move(handler));
}

} // namespace wendlow
