#include "Live/EditorBrowses.h"

#include <utility>

namespace wendlow {

EditorBrowses::EditorBrowses(Answer answer) : m_answer(std::move(answer)) {}

EditorBrowses::~EditorBrowses() {
    m_life.end();
    m_waiting.takeAll().resumeAll(EditorAnswer::pending());
}

QCoro::Task<EditorAnswer> EditorBrowses::query(EditorAsk ask) {
    const Lifetime::Watch life = m_life.watch();
    if (m_inFlight) {
        m_waiting.resumeAll(EditorAnswer::pending());
        if (life.expired())
            co_return EditorAnswer::pending();
        m_queued = std::move(ask);
        co_return co_await m_waiting;
    }
    m_inFlight = true;
    EditorAsk current = std::move(ask);
    EditorAnswer latest = co_await m_answer(current);
    while (!life.expired() && m_queued) {
        const EditorAsk next = *std::exchange(m_queued, std::nullopt);
        auto served = m_waiting.takeAll();
        if (next != current) {
            current = next;
            latest = co_await m_answer(current);
        }
        served.resumeAll(latest);
    }
    if (!life.expired())
        m_inFlight = false;
    co_return latest;
}

} // namespace wendlow
