#pragma once

#include <chrono>
#include <functional>
#include <memory>

class QObject;

namespace wendlow {

/// A thread that does what it is given in order, and has timers and an event loop of the toolkit.
/// All work given before the queue's end is done; a timer that is not due by then is dropped. Any
/// thread may use the queue, and any may end it, the queue's own too.
class DispatchQueue {
public:
    using Work = std::function<void()>;

    DispatchQueue();
    DispatchQueue(const DispatchQueue&) = delete;
    DispatchQueue& operator=(const DispatchQueue&) = delete;
    /// Waits for the work, unless it is the work that ends the queue.
    ~DispatchQueue();

    void async(Work work);
    void after(std::chrono::milliseconds delay, Work work);
    /// The object's slots and events come on the queue from now on. From the object's own thread.
    void adopt(QObject& object);

    /// For work that may block: done in order as well, but on another thread, so that replies and
    /// timers go on meanwhile.
    void aside(Work work);

private:
    class Lane;

    const std::unique_ptr<Lane> m_lane;
    const std::unique_ptr<Lane> m_aside;
};

} // namespace wendlow
