#pragma once

#include "Model/EditorScope.h"

#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// The one path that is shown where one alone can be: the one that is picked, the root where
/// several are, and else the first where something is filed.
std::string rulesScope(const std::set<std::string>& picked,
                       const std::vector<EditorScopeRow>& board);

} // namespace wendlow
