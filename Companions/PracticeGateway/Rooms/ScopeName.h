#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The form of a scope's path: "/", or pieces that each begin with "/".
namespace wendlow::ScopeName {

/// What stands behind the path in a refusal.
inline constexpr std::string_view form =
    "a scope begins with “/”, has no empty piece and does not end with “/”";

bool isValid(std::string_view path);
/// The scopes that hold `path`, from the root down to the path itself.
std::vector<std::string> chain(std::string_view path);

} // namespace wendlow::ScopeName
