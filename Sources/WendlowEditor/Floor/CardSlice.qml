import QtQuick
import WendlowControls

// The piece of a card behind one of its rows, with the line to the next row.
Item {
    id: slice

    required property bool first
    required property bool last
    property bool lined: true

    clip: true

    Rectangle {
        y: slice.first ? 0 : -Theme.radiusCard
        width: parent.width
        height: parent.height - y + (slice.last ? 0 : Theme.radiusCard)
        radius: Theme.radiusCard
        color: Theme.surface
        border.width: Theme.strokeHairline
        border.color: Theme.hairline
    }
    Hairline {
        visible: slice.lined && !slice.last
        y: parent.height - 1
        width: parent.width
    }
}
