#pragma once

#include "Model/EditorScope.h"
#include "Records/ScopeBoardEntry.h"

#include <vector>

namespace wendlow::ScopeTree {

/// The tree under "/" in which every entry has its node, and so has every scope above one. Children
/// by path.
EditorScope tree(std::vector<ScopeBoardEntry> entries);

/// A row for each entry, in their order.
std::vector<EditorScopeRow> board(const std::vector<ScopeBoardEntry>& entries);

} // namespace wendlow::ScopeTree
