pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMods

// A line of the face of the mods, of any kind, on its piece of a card.
ModsLine {
    id: row

    readonly property bool onCard: row.kind !== ModsRows.Section
    readonly property Item body: part.count > 0 ? part.itemAt(0) as Item : null
    // Outside of the card, and inside of it above and below.
    readonly property int gap: row.index === 0 ? 0 : row.kind === ModsRows.Section ? Theme.sectionAbove : row.kind === ModsRows.Head ? Theme.space24 : 0
    readonly property int above: row.kind === ModsRows.Head ? Theme.cardPadding : row.first ? Theme.space8 : row.parts ? 2 * Theme.space8 + 1 : 0
    readonly property int below: row.last ? Theme.space12 : 0

    implicitHeight: row.gap + row.above + (row.body?.implicitHeight ?? 0) + row.below

    CardSlice {
        visible: row.onCard
        y: row.gap
        width: parent.width
        height: parent.height - y
        first: row.first
        last: row.last
        lined: false
    }
    Hairline {
        visible: row.parts && !row.first
        x: Theme.cardPadding
        y: row.gap + Theme.space8
        width: parent.width - 2 * x
    }
    Repeater {
        id: part
        model: 1
        delegate: row.kind === ModsRows.Run ? run : row.kind === ModsRows.Section ? section : row.kind === ModsRows.Note ? note : thing
    }

    Component {
        id: thing

        ModsThing {
            x: Theme.cardPadding
            y: row.gap + row.above
            width: row.width - 2 * x
            line: row
        }
    }
    Component {
        id: run

        RunLog {
            x: 12
            y: row.gap + row.above
            width: row.width - 2 * x
            text: row.words
            lane: row.beside
            outcome: row.outcome
            tone: row.tone
            turns: row.trailing
            tip: row.tip
            leads: row.opens
            help: row.help
            ringed: row.ringed
            onPressed: row.claimed()
            onClicked: row.acted()
        }
    }
    Component {
        id: note

        Label {
            x: Theme.cardPadding
            y: row.gap + row.above
            width: row.width - 2 * x
            role: Label.Role.Small
            line: Theme.hintLine
            text: row.words
            color: Theme.textSecond
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
        }
    }
    Component {
        id: section

        Column {
            y: row.gap
            width: row.width
            bottomPadding: Theme.sectionBelow

            Label {
                width: parent.width
                role: Label.Role.Section
                text: row.words
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
                Accessible.role: Accessible.Heading
            }
            Label {
                visible: text.length > 0
                width: parent.width
                role: Label.Role.Small
                line: Theme.hintLine
                text: row.under
                color: Theme.textSecond
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
        }
    }
}
