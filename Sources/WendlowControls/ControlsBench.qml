pragma ComponentBehavior: Bound

import QtQuick

// Every control in every state on one page, so that a glance finds what is off.
Flickable {
    id: bench

    contentWidth: Math.max(width, 1280)
    contentHeight: page.height + 2 * Theme.space48
    boundsBehavior: Flickable.StopAtBounds

    Rectangle {
        parent: bench
        z: -1
        anchors.fill: parent
        color: Theme.ground
    }
    Label {
        x: Theme.space48
        y: Theme.space32
        role: Label.Role.Title
        text: qsTr("Controls")
    }
    Row {
        id: page
        x: Theme.space48
        y: 80
        spacing: Theme.space48

        BenchStates { width: 760 }
        BenchParts { width: 376 }
    }
}
