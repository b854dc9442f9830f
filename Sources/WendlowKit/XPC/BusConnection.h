#pragma once

#include <memory>
#include <string>

#include "XPC/XPCConnection.h"

namespace wendlow {

class BusPeer;

/// A connection over D-Bus. All it does is done on its queue.
class BusConnection final : public XPCConnection {
public:
    BusConnection(const std::string& name, std::shared_ptr<DispatchQueue> queue);
    ~BusConnection() override;

    void setEventHandler(Handler handler) override;
    void resume() override;
    void cancel() override;
    void send(xpc_object_t message) override;
    void sendWithReply(xpc_object_t message, Handler handler) override;

private:
    const std::shared_ptr<DispatchQueue> m_queue;
    const std::shared_ptr<BusPeer> m_peer;
};

} // namespace wendlow
