import QtQuick
import WendlowControls

// The two letters of an AI tool, or the symbol of one that has no letters.
Rectangle {
    id: tile

    required property string asset
    required property string glyph

    readonly property string letters: ToolTiles.letters(tile.asset)

    implicitWidth: Theme.scaled(32)
    implicitHeight: Theme.scaled(32)
    radius: Theme.radiusButton
    color: Theme.well
    border.width: Theme.strokeHairline
    border.color: Theme.hairline

    Accessible.ignored: true

    Label {
        visible: tile.letters.length > 0
        anchors.centerIn: parent
        role: Label.Role.SmallBold
        text: tile.letters
        color: Theme.textSecondOnTint
        Accessible.ignored: true
    }
    Icon {
        visible: tile.letters.length === 0
        anchors.centerIn: parent
        size: Theme.iconSize
        name: tile.glyph
        color: Theme.textSecondOnTint
    }
}
