pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowStats

// The figures of all time, told apart by hairlines.
Card {
    id: card

    required property StatsRoot root
    property bool narrow: false

    readonly property int inside: card.width - 2 * (Theme.space24 + 1)
    readonly property int columns: !card.narrow ? 5 : card.inside >= Theme.scaled(360) ? 3 : 2
    readonly property int rows: Math.ceil(5 / card.columns)
    readonly property int cellHeight: Theme.lines[Label.Role.Title] + Theme.lines[Label.Role.Small]
    // On both sides of a hairline.
    readonly property int beside: 20
    readonly property real cellWidth: (card.inside - (card.columns - 1) * (2 * card.beside + 1)) / card.columns

    implicitHeight: 2 * 23 + card.rows * card.cellHeight + (card.rows - 1) * Theme.space16

    Accessible.role: Accessible.List
    Accessible.name: qsTr("All time")

    Repeater {
        model: card.root.band

        Item {
            id: cell

            required property int index
            required property StatsFigure modelData

            readonly property int column: cell.index % card.columns

            x: Theme.space24 + 1 + Math.round(cell.column * (card.cellWidth + 2 * card.beside + 1))
            y: 23 + Math.floor(cell.index / card.columns) * (card.cellHeight + Theme.space16)
            width: card.cellWidth
            height: card.cellHeight

            Accessible.role: Accessible.ListItem
            Accessible.name: qsTr("%1 %2").arg(cell.modelData.words).arg(cell.modelData.label)

            Hairline {
                visible: cell.column > 0
                x: -card.beside - 1
                y: 1
                width: Theme.strokeHairline
                height: parent.height - 2
            }
            CountedLabel {
                width: parent.width
                role: Label.Role.Title
                figure: cell.modelData
                Accessible.ignored: true
            }
            Label {
                y: Theme.lines[Label.Role.Title]
                width: parent.width
                role: Label.Role.Small
                text: cell.modelData.label
                color: Theme.textSecond
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
    }
}
