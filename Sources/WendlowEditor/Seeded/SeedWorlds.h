#pragma once

#include "Model/EditorMoment.h"
#include "Model/EditorScope.h"
#include "Model/EditorWorld.h"

#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// What a made-up world holds: always the same, at every start.
struct SeededContents {
    EditorScope root = EditorScope::root();
    std::vector<EditorMoment> moments = {}; ///< the newest first
};

namespace SeedWorlds {
SeededContents contents(SeedWorld world);
} // namespace SeedWorlds

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
