#pragma once

#include <coroutine>
#include <deque>
#include <optional>
#include <utility>

namespace wendlow {

/// Coroutines that have to wait for a value, first come, first served. Each is resumed exactly
/// once: whoever owns the queue resumes what still waits before the queue goes. One thread.
template<class Value> class Waiting {
    struct Caller {
        std::coroutine_handle<> handle;
        std::optional<Value>* value;
    };

public:
    class Awaiter {
    public:
        explicit Awaiter(std::deque<Caller>& callers) : m_callers(callers) {}
        bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> handle) {
            m_callers.push_back({handle, &m_value});
        }
        Value await_resume() { return *std::move(m_value); }

    private:
        std::deque<Caller>& m_callers;
        std::optional<Value> m_value;
    };

    Waiting() = default;

    bool empty() const { return m_callers.empty(); }
    /// Suspends the caller at the tail.
    Awaiter operator co_await() { return Awaiter(m_callers); }

    /// Resumes the one who has waited longest. There must be one.
    void resumeFirst(Value value) {
        const Caller caller = m_callers.front();
        m_callers.pop_front();
        caller.value->emplace(std::move(value));
        caller.handle.resume();
    }
    /// Takes out all that wait now, to be resumed later.
    Waiting takeAll() { return {std::exchange(m_callers, {})}; }
    /// Resumes those who wait now; whoever comes to wait meanwhile stays. The queue may go
    /// meanwhile.
    void resumeAll(const Value& value) {
        for (Waiting now = takeAll(); !now.empty();)
            now.resumeFirst(value);
    }

private:
    Waiting(std::deque<Caller> callers) : m_callers(std::move(callers)) {}

    std::deque<Caller> m_callers;
};

} // namespace wendlow
