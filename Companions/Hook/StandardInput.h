#pragma once

#include <chrono>
#include <optional>
#include <string>

/// What a tool writes to a hook.
namespace wendlow::StandardInput {

/// More is read to its end, so that the tool sees no broken pipe, and not kept.
inline constexpr std::size_t mostKept = std::size_t{32} << 20U;

/// All of it. Nothing where it has not ended by the deadline or is too much to keep, and at once
/// where a person sits at a terminal.
std::optional<std::string> read(std::chrono::steady_clock::time_point deadline);

} // namespace wendlow::StandardInput
