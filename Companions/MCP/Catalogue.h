#pragma once

#include <string_view>
#include <vector>

#include "Tool.h"

/// The tools that an AI tool's session gets.
namespace wendlow::Catalogue {

/// In the order in which they are offered.
const std::vector<Tool>& tools();

/// The tool of this name, or none.
const Tool* find(std::string_view name);

} // namespace wendlow::Catalogue
