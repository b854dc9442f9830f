import QtQuick
import WendlowControls

// The box of a check box: an outline, or filled with a tick.
Rectangle {
    id: box

    required property bool on
    property bool lit: false

    width: Theme.iconSize
    height: Theme.iconSize
    radius: Theme.radiusTag
    color: !box.on ? "transparent" : box.lit ? Theme.accentHover : Theme.accent
    border.width: box.on ? 0 : Theme.strokeControl
    border.color: !box.enabled ? Theme.edge : box.lit ? Theme.textSecondOnTint : Theme.control

    Icon {
        visible: box.on
        size: Theme.iconSize
        name: "tick"
        color: Theme.inkOnAccent
    }
}
