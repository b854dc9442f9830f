#pragma once

#include <algorithm>
#include <optional>
#include <ranges>
#include <string_view>

/// A scope is a path below "/"; what is filed in it is also in the scopes above it.
namespace wendlow::ScopePath {

inline constexpr std::string_view root = "/";

/// Whether `path` is `prefix` or lies below it, whole segments only: "/a/bc" is not in "/a/b".
/// Everything is in no prefix and in the root.
constexpr bool inScope(std::string_view path, std::optional<std::string_view> prefix) {
    if (!prefix || *prefix == root || path == *prefix)
        return true;
    return path.starts_with(*prefix) && path.substr(prefix->size()).starts_with('/');
}

/// Whether any of `scopes`, texts of any kind, holds `path`; no scopes at all hold everything.
template<std::ranges::input_range Scopes>
constexpr bool matches(std::string_view path, const Scopes& scopes) {
    return std::ranges::empty(scopes) || std::ranges::any_of(scopes, [path](const auto& scope) {
               return inScope(path, std::string_view(scope));
           });
}

} // namespace wendlow::ScopePath
