#pragma once

#include <QDeadlineTimer>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <memory>
#include <string>
#include <utility>

namespace wendlow {

/// Where all work on one tool's files is done: off the UI thread, one thing at a time, in order.
/// Each tool has its own, so that one whose disk does not answer holds up no other.
class ToolLane {
public:
    explicit ToolLane(const std::string& toolId);
    /// Of what nobody has waited for, nothing more begins, and what has begun is left behind.
    ~ToolLane();
    ToolLane(const ToolLane&) = delete;
    ToolLane& operator=(const ToolLane&) = delete;

    template<class Work> auto run(Work work) { return QtConcurrent::run(&pool(), std::move(work)); }
    QThreadPool& pool() { return *m_pool; }

    /// Lets what is under way or queued come to its end, but for no longer than that.
    void waitUntil(const QDeadlineTimer& limit);

private:
    std::unique_ptr<QThreadPool> m_pool;
};

} // namespace wendlow
