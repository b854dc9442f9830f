pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// Every control in every state on one page, so that a glance finds what is off. A narrow window has its
// two halves below each other.
Flickable {
    id: bench

    readonly property int margin: Math.max(10, Math.min(Theme.space48, (bench.width - 760) / 2))

    contentHeight: page.y + page.height + Theme.space48
    boundsBehavior: Flickable.StopAtBounds

    T.ScrollBar.vertical: ScrollBar {}

    Rectangle {
        parent: bench
        z: -1
        anchors.fill: parent
        color: Theme.ground
    }
    Label {
        x: bench.margin
        y: Theme.space32
        role: Label.Role.Title
        text: qsTr("Controls")
    }
    Flow {
        id: page
        x: bench.margin
        width: bench.width - 2 * x
        y: 80
        spacing: Theme.space48

        BenchStates { width: 760 }
        BenchParts { width: 376 }
        BenchForms { width: 376 }
        BenchPanels { width: 760 }
    }
}
