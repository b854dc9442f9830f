#pragma once

#include <coroutine>
#include <functional>
#include <memory>
#include <optional>

#include <QCoroTask>

#include "Client.h"

namespace wendlow {

/// What one request of a client asks of the gateway, one question after the other, until it is
/// answered or the client gives it up. A daemon that is silent may keep an answer for good; who has
/// given up does not wait for it. One thread.
class GatewayCall : public std::enable_shared_from_this<GatewayCall> {
public:
    /// Made when something is asked: what only looks at the server needs no gateway.
    using Door = std::function<WendlowClient&()>;

    /// `door` must outlive it.
    explicit GatewayCall(const Door& door) : m_door(door) {}

    /// Nothing once the call is given up.
    QCoro::Task<std::optional<GatewayResponse>> ask(GatewayRequest request);
    void giveUp();

private:
    struct Arrival {
        GatewayCall& call;
        bool await_ready() const noexcept { return call.m_answer || call.m_isGivenUp; }
        void await_suspend(std::coroutine_handle<> waiter) const noexcept {
            call.m_waiter = waiter;
        }
        void await_resume() const noexcept {}
    };

    static QCoro::Task<> fetch(std::shared_ptr<GatewayCall> call, GatewayRequest request);
    void wake();

    const Door& m_door;
    std::optional<GatewayResponse> m_answer;
    std::coroutine_handle<> m_waiter;
    bool m_isGivenUp = false;
};

} // namespace wendlow
