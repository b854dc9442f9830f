#pragma once

#include <string>
#include <string_view>

/// Why a tool was told nothing: `~/Library/Logs/wendlow-hook.log`, a line for each time, for
/// support. Nothing that a person typed stands in it.
namespace wendlow::HookLog {

/// The log has at most so many bytes, and so has the one before it, at ".1".
inline constexpr long sizeLimit = 64L * 1024;

std::string path();

/// Appends the line with the time before it. Any number of processes at one time. A failure is
/// given up in silence.
void line(std::string_view text);

} // namespace wendlow::HookLog
