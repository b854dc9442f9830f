pragma ComponentBehavior: Bound

import QtQuick

// The ring around the control that it is put into, shown while focus came by keyboard. Rows and sidebar
// items draw it inside their edge, where a neighbour cannot cover it.
Repeater {
    id: ring

    required property bool shown
    property int around: Theme.radiusButton
    property bool inside: false

    readonly property int reach: ring.inside ? 0 : 3

    anchors.fill: parent
    anchors.margins: -ring.reach
    model: ring.shown ? 1 : 0

    Rectangle {
        x: ring.x
        y: ring.y
        width: ring.width
        height: ring.height
        color: "transparent"
        radius: ring.around + ring.reach
        border.width: Theme.strokeFocus
        border.color: Theme.accent
    }
}
