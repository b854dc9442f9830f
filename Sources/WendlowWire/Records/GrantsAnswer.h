#pragma once

#include <string>
#include <vector>

#include "Described.h"

namespace wendlow {

/// A permission of the platform that the daemon needs.
struct GrantRow {
    std::string kind;
    std::string state;
    std::string displayName;
    WENDLOW_RECORD(GrantRow, kind, state, displayName);
};

struct GrantsAnswer {
    std::vector<GrantRow> grants;
    WENDLOW_RECORD(GrantsAnswer, grants);
};

} // namespace wendlow
