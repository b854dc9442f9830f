pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowStats

// Apps or sites by their time, as bars. It has room for five rows, whether they are there or not.
Card {
    id: card

    required property string title
    required property string words
    required property StatsBarList bars
    required property bool loading
    required property string listName
    // Each row has a sign before its name.
    property bool signed: false

    readonly property int rowHeight: Theme.scaled(34)
    readonly property int places: 5

    implicitHeight: rows.y + card.places * card.rowHeight + 16

    Label {
        id: heading
        x: Theme.space24 + 1
        y: 20
        width: card.width - 2 * x
        height: Theme.lines[Label.Role.Heading]
        role: Label.Role.Heading
        text: card.title
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }
    Column {
        id: rows
        x: heading.x
        y: heading.y + heading.height + 6
        width: heading.width

        Accessible.role: Accessible.List
        Accessible.name: card.listName

        Repeater {
            model: card.bars

            BarRow {
                width: rows.width
                height: card.rowHeight
                signed: card.signed
            }
        }
    }
    CardWords {
        x: rows.x
        y: rows.y + Math.round((card.places * card.rowHeight - height) / 2)
        width: rows.width
        text: card.words
        loading: card.loading
    }
}
