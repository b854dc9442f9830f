#pragma once

#include <string>
#include <variant>
#include <vector>

namespace wendlow {

class AppInventory;

/// What stands at the start of a row.
struct ConnectableAppIcon {
    struct Asset {
        std::string name; ///< a brand image
        bool operator==(const Asset&) const = default;
    };
    struct Glyph {
        std::string name; ///< a symbol of the icon table, for an app without an image
        bool operator==(const Glyph&) const = default;
    };

    std::variant<Asset, Glyph> kind;

    /// The brand image for a connector's id, by the brand table; empty if the table has none.
    static std::string brandAsset(const std::string& id);

    bool operator==(const ConnectableAppIcon&) const = default;
};

/// An AI app that is on this machine.
struct ConnectableApp {
    std::string id;
    std::string name;
    std::string detail;
    ConnectableAppIcon icon;
    bool connected = false; ///< wired exactly; a drifted app is not
    bool busy = false;      ///< a verb is in flight

    bool operator==(const ConnectableApp&) const = default;
};

/// One line beside a row.
struct ConnectableAppNote {
    int id = 0; ///< its position in the list of notes
    std::string text;
    std::string subject; ///< usually a path
    std::string place;   ///< where in that file the text points, in words; mostly empty

    bool operator==(const ConnectableAppNote&) const = default;
};

/// What can be done from an open row.
enum class RowAction { undo, connect, disconnect, copyPath, lookAgain };

/// What stands at the top of an open row: a sentence, what it rests on, and what can be done.
struct RowStrip {
    /// In the order of the tones of a strip.
    enum class Tone { information, warning, refusal };

    Tone tone = Tone::information;
    std::string headline;
    // NOLINTBEGIN(readability-redundant-member-init): they may be left out of a list
    std::vector<ConnectableAppNote> lines = {};
    std::vector<RowAction> actions = {};
    // NOLINTEND(readability-redundant-member-init)

    bool operator==(const RowStrip&) const = default;
};

/// A row as the pane draws it.
struct ConnectedAppRow {
    ConnectableApp app;
    bool drifted = false;
    bool open = false; ///< all that follows is in sight
    std::vector<RowStrip> strips;
    std::vector<ConnectableAppNote> changes; ///< what the last verb said, folded away
    std::string changesTitle;
    std::vector<ConnectableAppNote> notes; ///< what the app's files hold
    AppInventory* inventory = nullptr;     ///< belongs to the model of the pane

    bool operator==(const ConnectedAppRow&) const = default;
};

} // namespace wendlow
