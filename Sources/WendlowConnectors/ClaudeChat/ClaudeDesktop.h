#pragma once

#include <filesystem>
#include <string_view>

/// This platform's answer to whether Claude's desktop app is running.
namespace wendlow::ClaudeDesktop {

/// How the desktop knows the app.
inline constexpr std::string_view applicationID = "com.anthropic.claudefordesktop";

/// Whether a process of this user is the desktop app. The command line tool of the same maker,
/// whose program is named `claude`, is not. `processes` is the kernel's folder of processes, or one
/// like it. Where that cannot be listed the answer is yes: who does not write does no harm. Reads
/// only; any thread.
bool isRunning(const std::filesystem::path& processes = "/proc");

} // namespace wendlow::ClaudeDesktop
