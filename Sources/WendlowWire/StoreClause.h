#pragma once

#include <string_view>

/// The sentences that several messages about the store end with. Each says exactly what was and was
/// not touched: never shorten or soften one.
namespace wendlow::StoreClause {

inline constexpr std::string_view thePhraseIsAnOption =
    "This Mac holds no Wendlow key. If you kept your 12-word recovery phrase, you can enter it "
    "in Settings › Recovery.";
inline constexpr std::string_view revealIsAvailable =
    "To see the phrase for the key this Mac does hold, use Reveal Recovery Phrase above; that "
    "only reads and changes nothing.";
inline constexpr std::string_view cannotBeFixedFromHere = "Wendlow cannot fix this from here.";
inline constexpr std::string_view nothingOfYoursCreated =
    "No key was made, and nothing of your memory was created, deleted, moved or re-keyed.";
inline constexpr std::string_view nothingOfYoursChanged =
    "Nothing of your memory was deleted, moved or re-keyed, and no key was made. Opening or "
    "checking a store does write, though: Wendlow may have created its own \"frames\" or \"pen\" "
    "folder, or SQLite's own empty \"-wal\"/\"-shm\" sidecars, before it stopped.";
inline constexpr std::string_view nothingOfYoursMoved =
    "No key was written, and nothing of your memory was changed, deleted or re-keyed — checking "
    "a store file can leave SQLite's own empty \"-wal\"/\"-shm\" sidecars beside it, and nothing "
    "else.";

} // namespace wendlow::StoreClause
