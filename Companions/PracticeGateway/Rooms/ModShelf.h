#pragma once

#include <string_view>
#include <vector>

#include "Records/ModBoardAnswer.h"

/// The mods that the practice gateway has to offer, as they are before they are installed.
namespace wendlow::ModShelf {

/// Nothing for a name that no mod has.
const ModBoardEntry* find(std::string_view name);
std::vector<std::string_view> names();

} // namespace wendlow::ModShelf
