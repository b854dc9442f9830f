#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The first line of a menu: which product this is, and which build. Pure.
namespace wendlow::MenuHeaderTitle {

inline constexpr std::string_view unknown = "?";

std::string title(std::string_view product, const std::optional<std::string>& version,
                  const std::optional<std::string>& build);

} // namespace wendlow::MenuHeaderTitle
