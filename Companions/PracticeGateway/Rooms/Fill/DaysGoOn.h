#pragma once

#include "ActivityLedger.h"
#include "Clock.h"

namespace wendlow {

/// The days of a filled database go on, for nobody fills it a second time. Where nothing is known,
/// nothing comes. Throws `DatabaseError`.
class DaysGoOn {
public:
    DaysGoOn(ActivityLedger& ledger, const Clock& clock)
        : m_ledger(ledger), m_now(secondsOf(clock())) {}

    /// What lacks between what is known last and now.
    void catchUp();
    /// What has passed since the last time, a little while ago: what the person did goes on, or
    /// something else follows.
    void pass();

private:
    ActivityLedger& m_ledger;
    const double m_now;
};

} // namespace wendlow
