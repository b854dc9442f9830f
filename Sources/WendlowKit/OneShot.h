#pragma once

#include <atomic>

namespace wendlow {

/// Lets exactly one of several through, from whichever thread.
class OneShot {
public:
    /// True the first time, false ever after.
    bool take() { return !m_taken.exchange(true); }

private:
    std::atomic<bool> m_taken = false;
};

} // namespace wendlow
