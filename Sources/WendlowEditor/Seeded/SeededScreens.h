#pragma once

#include <cstdint>
#include <string>

/// Screens of the made-up worlds, seen from afar. The same number always gives the same picture.
namespace wendlow::SeededScreens {

/// As PNG.
std::string draw(std::int64_t number);

} // namespace wendlow::SeededScreens
