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

    std::vector<PlannedChapter> chapters; ///< number 1 is the first
    std::vector<Activity> activities;     ///< in order

    /// Nothing of it lies after `now`.
    static WorkPlan of(double now, int days);

    const Project& projectOf(const Activity& activity) const {
        return *chapters[static_cast<std::size_t>(activity.chapter - 1)].project;
    }
};

} // namespace wendlow
