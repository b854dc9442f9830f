#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The names by which the person goes, as a list for the daemon and as one line for the person.
namespace wendlow::SelfNames {

/// Between two names where a person reads them.
inline constexpr std::string_view separator = ", ";

/// The list that the daemon is given: entries are split at commas and trimmed, empty pieces and
/// repeated ones are dropped. Case makes no difference; the first spelling stays, in its place.
std::vector<std::string> tidy(std::span<const std::string> names);

} // namespace wendlow::SelfNames
