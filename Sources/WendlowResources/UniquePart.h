#pragma once

#include <string>

namespace wendlow {

/// A part of a file name that nobody else makes: a random UUID.
std::string uniquePart();

} // namespace wendlow
