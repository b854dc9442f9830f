#include "XPC/DispatchQueue.h"

#include <deque>
#include <mutex>
#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QTimer>

namespace wendlow {

namespace {

using Work = DispatchQueue::Work;

/// Lives on a lane's thread and does its work. The work is handed over under a lock of our own; the
/// toolkit's event only wakes the thread.
class Worker final : public QObject {
public:
    void add(Work work) {
        bool wake = false;
        {
            const std::lock_guard guard(m_lock);
            wake = m_work.empty();
            m_work.push_back(std::move(work));
        }
        if (wake)
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        doWork();
        return true;
    }

private:
    void doWork() {
        std::deque<Work> work;
        {
            const std::lock_guard guard(m_lock);
            work.swap(m_work);
        }
        // Each is let go of before the next, in case it holds the last of something.
        for (; !work.empty(); work.pop_front())
            work.front()();
    }

    std::mutex m_lock;
    std::deque<Work> m_work;
};

} // namespace

class DispatchQueue::Lane {
public:
    Lane() {
        m_worker->moveToThread(m_thread);
        QObject::connect(m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
        m_thread->start();
    }
    Lane(const Lane&) = delete;
    Lane& operator=(const Lane&) = delete;
    ~Lane() {
        // As the last work, behind all that was given before.
        add([thread = m_thread] { thread->quit(); });
        if (QThread::currentThread() == m_thread) {
            QObject::connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
            return;
        }
        m_thread->wait();
        delete m_thread;
    }

    void add(Work work) { m_worker->add(std::move(work)); }
    void adopt(QObject& object) { object.moveToThread(m_thread); }
    void after(std::chrono::milliseconds delay, Work work) {
        add([worker = m_worker, delay, work = std::move(work)] {
            QTimer::singleShot(delay, Qt::PreciseTimer, worker, work);
        });
    }

private:
    // Both outlive this where the last work on the thread is what destroys it.
    QThread* const m_thread = new QThread;
    Worker* const m_worker = new Worker;
};

DispatchQueue::DispatchQueue()
    : m_lane(std::make_unique<Lane>()), m_aside(std::make_unique<Lane>()) {}

DispatchQueue::~DispatchQueue() = default;

void DispatchQueue::async(Work work) {
    m_lane->add(std::move(work));
}

void DispatchQueue::after(std::chrono::milliseconds delay, Work work) {
    m_lane->after(delay, std::move(work));
}

void DispatchQueue::adopt(QObject& object) {
    m_lane->adopt(object);
}

void DispatchQueue::aside(Work work) {
    m_aside->add(std::move(work));
}

} // namespace wendlow
