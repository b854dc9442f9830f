#pragma once

#include <QTimer>

#include <chrono>
#include <coroutine>
#include <utility>

namespace wendlow {

/// A coroutine's wait for a time, which whoever holds it can cut short, so that no coroutine is
/// left waiting when its object goes. One waits at a time. Belongs to the UI thread.
class Pause {
public:
    Pause() {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { end(); });
    }
    ~Pause() { end(); }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

    /// Whoever waits goes on at once, before this returns.
    void end() {
        m_timer.stop();
        if (const auto waiting = std::exchange(m_waiting, nullptr))
            waiting.resume();
    }

    struct Wait {
        Pause& pause;
        std::chrono::milliseconds time;

        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<> waiting) const {
            pause.m_waiting = waiting;
            pause.m_timer.start(time);
        }
        void await_resume() const {}
    };
    /// To be awaited.
    Wait lasting(std::chrono::milliseconds time) { return {*this, time}; }

private:
    QTimer m_timer;
    std::coroutine_handle<> m_waiting;
};

} // namespace wendlow
