import QtQuick
import WendlowControls

// The quiet sign beside a switch whose state does not tell the whole story.
Item {
    id: mark

    required property string text

    implicitWidth: Theme.iconSize
    implicitHeight: Theme.iconSize

    Accessible.role: Accessible.Graphic
    Accessible.name: mark.text

    Icon {
        size: Theme.iconSize
        name: "warn"
        color: Theme.warning
    }
    HoverHandler { id: pointer }
    Hint {
        text: mark.text
        wanted: pointer.hovered
    }
}
