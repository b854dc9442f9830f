#pragma once

#include <coroutine>
#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <optional>

#include <QCoroTask>

#include "Client.h"

namespace wendlow {

class GatewayCall;

/// How many calls ask the gateway at one time; the others wait, first come, first served. One
/// thread, with an event loop.
class GatewayTurns {
public:
    explicit GatewayTurns(std::size_t most) : m_free(most) {}

private:
    friend class GatewayCall;
    bool take(const std::shared_ptr<GatewayCall>& call);
    void leave(const std::shared_ptr<GatewayCall>& call);

    std::size_t m_free;
    std::list<std::shared_ptr<GatewayCall>> m_waiting;
};

/// What one request of a client asks of the gateway, one question after the other, until it is
/// answered or the client gives it up. A daemon that is silent may keep an answer for good; who has
/// given up waits neither for it nor for a turn. One thread.
class GatewayCall : public std::enable_shared_from_this<GatewayCall> {
public:
    /// Made when something is asked: what only looks at the server needs no gateway.
    using Door = std::function<WendlowClient&()>;

    /// Both must outlive it.
    GatewayCall(const Door& door, GatewayTurns& turns) : m_door(door), m_turns(turns) {}

    /// Nothing once the call is given up.
    QCoro::Task<std::optional<GatewayResponse>> ask(GatewayRequest request);
    void giveUp();

private:
    friend class GatewayTurns;
    struct Turn {
        GatewayCall& call;
        bool await_ready() const noexcept { return call.m_hasTurn; }
        void await_suspend(std::coroutine_handle<> waiter) const noexcept {
            call.m_waiter = waiter;
        }
        void await_resume() const noexcept {}
    };
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
    GatewayTurns& m_turns;
    bool m_hasTurn = false;
    std::optional<GatewayResponse> m_answer;
    std::coroutine_handle<> m_waiter;
    bool m_isGivenUp = false;
};

} // namespace wendlow
