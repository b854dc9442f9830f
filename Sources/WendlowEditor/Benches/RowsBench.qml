pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorBenches

// Rows of every kind, one page below the other, each alive. The database is the daemon's.
ScrollPage {
    id: page

    required property RowsBenchModel bench

    columnWidth: page.width
    sideMargin: 0
    above: 0
    below: Theme.space32
    clip: true

    Rectangle {
        parent: page
        z: -1
        anchors.fill: parent
        color: Theme.well
    }
    Item {
        width: parent.width
        height: sources.height + 2 * Theme.space16

        ChoiceWords {
            id: sources
            x: Theme.space32
            y: Theme.space16
            choices: page.bench.sources
            onChosen: word => page.bench.chooseSource(word)
        }
    }
    Repeater {
        model: page.bench.kinds

        Column {
            id: shown

            required property var modelData

            readonly property RowsBenchKind kind: shown.modelData as RowsBenchKind

            width: parent?.width ?? 0
            bottomPadding: Theme.space24

            Label {
                x: Theme.space32
                height: Theme.scaled(28)
                role: Label.Role.Caption
                text: shown.kind.title
                color: Theme.textSecondOnTint
                Accessible.role: Accessible.Heading
            }
            Hairline { width: parent.width }
            BenchStage {
                width: parent.width
                height: Theme.scaled(360)
                root: shown.kind.root
            }
            Hairline { width: parent.width }
        }
    }
}
