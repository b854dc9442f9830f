#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// How a command line in a tool's file is ours. That it is not ours is the absence of this.
enum class HookOwnership {
    current, ///< one this build writes, in one of the accepted spellings
    stale,   ///< recognisably ours, from another copy of the application or from an old script
};

/// The case's name.
std::string_view text(HookOwnership ownership);

/// Tells a hook command of ours from a person's own. Pure; any thread.
namespace HookCommand {

/// `command` in every accepted spelling: each flag with a space or with `=`, the given one first.
std::vector<std::string> spellings(std::string_view command);
/// Whether `command` is one of the spellings of `current`.
bool isSpelling(std::string_view command, std::string_view current);
/// Whose `command` is. `currents` are the exact commands this build writes for the file; a stale
/// command has the harness of the first of them that has one.
std::optional<HookOwnership> tier(std::string_view command, std::span<const std::string> currents);
/// The script that `python3 <script>` runs, if it lies in the scripts folder of a source checkout.
std::optional<std::filesystem::path> legacyScriptPath(std::string_view command);
/// Whether `command` runs one of the old scripts in such a folder.
bool isLegacyScript(std::string_view command);
/// Whether `command` runs the hook program of some copy of the application for the harness of
/// `current`.
bool isLegacyBundle(std::string_view command, std::string_view current);

/// Whether `command` is for the moment before a tool runs, in either spelling.
bool isPreTool(std::string_view command);

/// Why a command that begins with `executable` would not run it, or would not be recognised later:
/// there is no quoting, so a path that a shell would split or expand cannot be written.
std::optional<std::string> unusableReason(const std::filesystem::path& executable);

} // namespace HookCommand
} // namespace wendlow
