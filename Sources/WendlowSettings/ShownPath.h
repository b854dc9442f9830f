#pragma once

#include <string>
#include <string_view>

namespace wendlow {

/// A path as a person reads it: what lies in the folder `home` begins with "~". An empty `home`
/// abbreviates nothing; whatever stands after the path is kept.
std::string shownPath(std::string_view path, std::string_view home);

} // namespace wendlow
