#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace wendlow::PropertyList {

/// No property list that is looked into here comes near this size.
inline constexpr std::size_t sizeLimit = std::size_t{1} << 20U;

/// The string under `key` in the dictionary that `bytes` are, in whatever format they are written
/// (XML or binary). Nothing when they are no property list, are longer than `sizeLimit`, or hold no
/// string there. Pure; any thread.
std::optional<std::string> string(std::string_view bytes, const std::string& key);

} // namespace wendlow::PropertyList
