import QtQuick
import WendlowControls

// The quiet sign beside a switch whose state does not tell the whole story.
Item {
    id: mark

    required property string text

    implicitWidth: 16
    implicitHeight: 16

    Accessible.role: Accessible.Graphic
    Accessible.name: mark.text

    Icon {
        name: "warn"
        color: Theme.warning
    }
    HoverHandler { id: pointer }
    Hint {
        text: mark.text
        wanted: pointer.hovered
    }
}
