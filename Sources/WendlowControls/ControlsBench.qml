pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// Every control in every state on one page, so that a glance finds what is off. A narrow window has its
// two halves below each other.
Flickable {
    id: bench

    readonly property int widest: Theme.scaled(760)
    readonly property int margin: Math.max(10, Math.min(Theme.space48, (bench.width - bench.widest) / 2))

    contentWidth: Math.max(bench.width, bench.widest + 2 * bench.margin)
    contentHeight: page.y + page.height + Theme.space48
    boundsBehavior: Flickable.StopAtBounds

    T.ScrollBar.vertical: ScrollBar {}
    T.ScrollBar.horizontal: ScrollBar {}

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
        width: bench.contentWidth - 2 * x
        y: Theme.space32 + Theme.scaled(48)
        spacing: Theme.space48

        BenchStates { width: bench.widest }
        BenchParts { width: Theme.scaled(376) }
        BenchForms { width: Theme.scaled(376) }
        BenchLightbox { width: Theme.scaled(376) }
        BenchChoices { width: bench.widest }
        BenchPanels { width: bench.widest }
    }
}
