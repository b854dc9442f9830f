#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wendlow {

/// Entries of ours in Claude Code's settings, which Cursor reads too: what is meant there for each
/// prompt also runs on each prompt in Cursor. Pure; any thread.
namespace CursorThirdParty {

enum class Kind {
    cursorCommand, ///< Cursor's own command, so that it runs twice
    claudeCommand, ///< Claude Code's command
    legacyScript,  ///< an old script
};

/// The first entry of ours that Cursor would run.
struct Mapped {
    std::string command;
    Kind kind = Kind::cursorCommand;

    bool operator==(const Mapped&) const = default;
};

/// What Claude Code's settings hold for Cursor; no bytes: there is no file. `cursorCommand` and
/// `claude` are the commands of this build, without a slot.
std::optional<Mapped> mappedWendlowEntry(std::optional<std::string_view> bytes,
                                         std::string_view cursorCommand, std::string_view claude);

/// The sentence about such an entry, for the file that holds it.
std::string sentence(Kind kind);

} // namespace CursorThirdParty
} // namespace wendlow
