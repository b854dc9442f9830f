#include "Fill/DaysGoOn.h"

#include <algorithm>

#include "Fill/WorkPlan.h"
#include "LocalTime.h"

namespace wendlow {

void DaysGoOn::catchUp() {
    const auto last = m_ledger.last();
    if (!last)
        return;
    const WorkPlan plan = WorkPlan::after(last->end, m_ledger.lastChapter(), m_now);
    for (const WorkPlan::PlannedChapter& planned : plan.chapters)
        m_ledger.put(planned.chapter);
    for (const Activity& activity : plan.activities)
        m_ledger.put(activity);
}

void DaysGoOn::pass() {
    constexpr double shortPause = 60; ///< between two looks
    constexpr std::int64_t longEnough = 720;
    const auto last = m_ledger.last();
    if (!last || m_now <= last->end)
        return;
    if (last->day != LocalTime::day(m_now)) {
        catchUp();
        return;
    }
    const bool pausing = m_now - last->end > shortPause;
    if (!pausing && last->attended && last->seconds() < longEnough)
        m_ledger.extendLast(m_now);
    else
        m_ledger.put(WorkPlan::next(*last, pausing ? m_now - shortPause : last->end, m_now));
}

} // namespace wendlow
