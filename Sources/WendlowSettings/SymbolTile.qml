import QtQuick
import WendlowControls

// A symbol on a quiet tile, beside the words that it stands for.
Rectangle {
    id: tile

    required property string name

    implicitWidth: Theme.scaled(32)
    implicitHeight: Theme.scaled(32)
    radius: Theme.radiusButton
    color: Theme.well
    border.width: Theme.strokeHairline
    border.color: Theme.hairline

    Accessible.ignored: true

    Icon {
        anchors.centerIn: parent
        size: Theme.scaled(16)
        name: tile.name
        color: Theme.textSecondOnTint
    }
}
