#include "ToolLane.h"

#include <algorithm>
#include <vector>

namespace wendlow {

ToolLane::ToolLane(const std::string& toolId) : m_pool(std::make_unique<QThreadPool>()) {
    m_pool->setObjectName(QStringLiteral("wendlow.settings.connected-apps.") +
                          QString::fromStdString(toolId));
    m_pool->setMaxThreadCount(1);
}

ToolLane::~ToolLane() {
    waitUntil(QDeadlineTimer(0));
    if (m_pool->activeThreadCount() == 0)
        return;
    // The pool waits for its thread without end, and a thread that a disk holds cannot be called
    // back: both stay until the process has gone.
    m_pool->clear();
    static auto* const leftBehind = new std::vector<std::unique_ptr<QThreadPool>>;
    leftBehind->push_back(std::move(m_pool));
}

void ToolLane::waitUntil(const QDeadlineTimer& limit) {
    m_pool->waitForDone(static_cast<int>(std::max<qint64>(0, limit.remainingTime())));
}

} // namespace wendlow
