#include "ToolLane.h"

#include <algorithm>
#include <vector>

namespace wendlow {

namespace {

/// A pool waits for its thread without end, and a thread that a disk holds cannot be called back:
/// both stay until the process has gone.
void leaveBehind(std::unique_ptr<QThreadPool> pool) {
    static auto* const pools = new std::vector<std::unique_ptr<QThreadPool>>;
    pools->push_back(std::move(pool));
}

} // namespace

ToolLane::ToolLane(const std::string& toolId) : m_pool(std::make_unique<QThreadPool>()) {
    m_pool->setObjectName(QStringLiteral("wendlow.settings.connected-apps.") +
                          QString::fromStdString(toolId));
    m_pool->setMaxThreadCount(1);
}

ToolLane::~ToolLane() {
    waitUntil(QDeadlineTimer(0));
    if (m_pool->activeThreadCount() == 0)
        return;
    m_pool->clear();
    leaveBehind(std::move(m_pool));
}

void ToolLane::waitUntil(const QDeadlineTimer& limit) {
    m_pool->waitForDone(static_cast<int>(std::max<qint64>(0, limit.remainingTime())));
}

} // namespace wendlow
