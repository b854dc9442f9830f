#pragma once

#include "Model/EditorMods.h"

#include <optional>
#include <string>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// A line of the face of the mods.
struct ModsRow {
    enum class Kind {
        head,     ///< of a mod's card
        file,     ///< of a mod
        behavior, ///< of a mod
        run,      ///< in the log of a mod, or of those that are gone
        section,  ///< the title of one
        note,     ///< what has to be said in a log or about a section
        rejection,
    };

    std::string id;
    Kind kind = Kind::note;
    std::string text = {};     ///< a name, a path, when it ran
    std::string beside = {};   ///< behind the text: where, when it wakes, which lane ran
    std::string under = {};    ///< a second line
    std::string trailing = {}; ///< at the right
    std::optional<EditorModRun> run = std::nullopt;
    bool first = false; ///< of its card
    bool last = false;  ///< of its card
    bool parts = false; ///< another part of the card begins with it

    bool operator==(const ModsRow&) const = default;

    /// The arrows stop here.
    bool isStop() const { return kind != Kind::section && kind != Kind::note; }
    bool opens() const { return run && run->hasReport(); }
};

// NOLINTEND(readability-redundant-member-init)

/// What the face of the mods says of a board.
namespace ModsPage {

std::vector<ModsRow> rows(const EditorModsBoard& board);

/// In place of a board, or of what would stand on an empty one. Nothing: the board is shown.
std::optional<std::string> emptyLine(const std::optional<EditorModsBoard>& board, bool loaded,
                                     const std::optional<std::string>& error);

} // namespace ModsPage

} // namespace wendlow
