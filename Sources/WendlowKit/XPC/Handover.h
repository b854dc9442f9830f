#pragma once

#include <atomic>
#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include <QObject>

#include "OneShot.h"

namespace wendlow {

/// Resumes a coroutine on the thread that made this, which needs an event loop, and then goes away
/// by itself.
class Resumer final : public QObject {
public:
    explicit Resumer(std::coroutine_handle<> coroutine) : m_coroutine(coroutine) {}

    /// Once, from any thread; nothing may be asked of it afterwards.
    void resume();

private:
    bool event(QEvent* event) override;

    std::coroutine_handle<> m_coroutine;
};

/// A value that one of several threads gives to a waiting coroutine: `co_await` starts the work,
/// and comes back on the caller's own thread with the first value given. Later values are dropped.
/// Where no value is ever given the coroutine never goes on.
template<class T> class Handover {
    struct State {
        OneShot oneShot;
        std::optional<T> value;
        std::atomic<bool> given = false;
        Resumer* resumer = nullptr;
    };

public:
    using Give = std::function<void(T)>;
    using Start = std::function<void(Give)>;

    explicit Handover(Start start) : m_start(std::move(start)) {}

    bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> coroutine) {
        m_state->resumer = new Resumer(coroutine);
        m_start([state = m_state](T value) {
            if (!state->oneShot.take())
                return;
            state->value.emplace(std::move(value));
            state->given.store(true, std::memory_order_release);
            state->resumer->resume();
        });
    }
    T await_resume() {
        m_state->given.load(std::memory_order_acquire);
        return std::move(*m_state->value);
    }

private:
    Start m_start;
    const std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace wendlow
