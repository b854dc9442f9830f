#pragma once

#include "Model/EditorScope.h"

#include <cstdint>
#include <string>
#include <vector>

namespace wendlow::FlatScopes {

/// The paths of the scope tree in the order of a walk, the root first.
std::vector<std::string> paths(const EditorScope& root);

/// How many those are.
std::int64_t count(const EditorScope& root);

} // namespace wendlow::FlatScopes
