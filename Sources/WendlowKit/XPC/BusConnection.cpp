#include "XPC/BusConnection.h"

#include <utility>

#include "XPC/BusPeer.h"
#include "XPC/DispatchQueue.h"

namespace wendlow {

BusConnection::BusConnection(const std::string& name, std::shared_ptr<DispatchQueue> queue)
    : m_queue(std::move(queue)), m_peer(BusPeer::make(QString::fromStdString(name), m_queue)) {}

BusConnection::~BusConnection() {
    cancel();
}

void BusConnection::setEventHandler(Handler handler) {
    m_queue->async([peer = m_peer, handler = std::move(handler)]() mutable {
        peer->setEventHandler(std::move(handler));
    });
}

void BusConnection::resume() {
    m_queue->async([peer = m_peer] { peer->resume(); });
}

void BusConnection::cancel() {
    m_queue->async([peer = m_peer] { peer->cancel(); });
}

void BusConnection::send(xpc_object_t message) {
    m_queue->async([peer = m_peer, message = std::move(message)]() mutable {
        peer->send(std::move(message));
    });
}

void BusConnection::sendWithReply(xpc_object_t message, Handler handler) {
    m_queue->async(
        [peer = m_peer, message = std::move(message), handler = std::move(handler)]() mutable {
            peer->sendWithReply(std::move(message), std::move(handler));
        });
}

} // namespace wendlow
