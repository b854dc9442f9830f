#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ActivityLedger.h"
#include "Fill/Content.h"

namespace wendlow {

/// A made-up person's working days, activity by activity, before they are stored. Meetings and
/// moments are picked from it, so that all windows tell of the same days.
struct WorkPlan {
    /// A chapter with the project that it is about.
    struct PlannedChapter {
        Chapter chapter;
        const Project* project = nullptr;
    };

    std::int64_t firstChapter = 1; ///< its number
    std::vector<PlannedChapter> chapters;
    std::vector<Activity> activities; ///< in order

    /// Nothing of it lies after `now`.
    static WorkPlan of(double now, int days);
    /// What came after a database was filled: from what is known last to `now`, two months at most.
    static WorkPlan after(double last, std::int64_t lastChapter, double now);
    /// What the person does next, while they are watched.
    static Activity next(const Activity& last, double start, double end);

    const Project& projectOf(const Activity& activity) const {
        return *chapters[static_cast<std::size_t>(activity.chapter - firstChapter)].project;
    }
};

} // namespace wendlow
