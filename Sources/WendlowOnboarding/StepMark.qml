import QtQuick
import WendlowControls

// The circle of a step: done with a tick, the one at hand with a dot, one that is to come empty.
Rectangle {
    id: circle

    // "done", "current" or "todo"
    required property string mark
    property int size: Theme.scaled(20)

    readonly property bool done: circle.mark === "done"
    readonly property bool current: circle.mark === "current"

    implicitWidth: circle.size
    implicitHeight: circle.size
    radius: circle.size / 2
    color: circle.done ? Theme.accentSoft : "transparent"
    border.width: circle.done ? 0 : circle.current ? Theme.strokeControl : Theme.strokeHairline
    border.color: circle.current ? Theme.accent : Theme.edge

    Accessible.ignored: true

    Icon {
        visible: circle.done
        anchors.centerIn: parent
        size: Math.round(circle.size * 0.7)
        name: "tick"
        color: Theme.accent
    }
    Rectangle {
        visible: circle.current
        anchors.centerIn: parent
        width: 2 * Math.round(circle.size * 0.2)
        height: width
        radius: width / 2
        color: Theme.accent
    }
}
