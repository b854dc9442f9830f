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

    bool operator==(const ConnectableAppNote&) const = default;
};

/// A row as the pane draws it.
struct ConnectedAppRow {
    ConnectableApp app;
    bool drifted = false;
    bool open = false; ///< notes and inventory are in sight
    std::vector<ConnectableAppNote> notes;
    AppInventory* inventory = nullptr; ///< belongs to the model of the pane

    bool operator==(const ConnectedAppRow&) const = default;
};

} // namespace wendlow
