pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorBenches
import WendlowEditorMemories

// The filter bar in its states, each live: what is picked is answered from what is made up, and told below it.
ScrollPage {
    id: page

    required property FiltersBenchModel bench

    columnWidth: Theme.scaled(900)
    sideMargin: Math.min(Theme.space48, Math.max(Theme.space16, Math.round(page.width / 24)))
    above: Theme.space32
    clip: true

    Rectangle {
        parent: page
        z: -1
        anchors.fill: parent
        color: Theme.ground
    }
    Label {
        role: Label.Role.Title
        text: qsTr("Filters")
        Accessible.role: Accessible.Heading
    }
    Repeater {
        model: page.bench.cases

        Column {
            id: shown

            required property var modelData

            readonly property FiltersBenchCase one: shown.modelData as FiltersBenchCase

            width: parent?.width ?? 0
            topPadding: Theme.space32
            spacing: Theme.space12

            BenchHead {
                width: shown.width
                text: shown.one.title
            }
            FilterBar {
                width: shown.width
                model: shown.one.bar
                tallestChips: Theme.scaled(200)
                tallest: Theme.scaled(260)
            }
            Label {
                width: shown.width
                role: Label.Role.Small
                text: shown.one.asked
                color: Theme.textSecond
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
            }
        }
    }
}
