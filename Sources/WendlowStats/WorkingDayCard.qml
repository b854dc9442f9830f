pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowStats

// The day as a whole: how long, and who of the two it was.
Card {
    id: card

    required property StatsRoot root

    // Both legends side by side, or one below the other.
    readonly property bool stacked: words.width < Theme.scaled(340)
    readonly property int legendLines: card.stacked ? 2 : 1

    implicitHeight: words.y + words.height + 30

    Column {
        id: words
        x: Theme.space24 + 1
        y: Theme.space24
        width: card.width - 2 * x

        Label {
            width: parent.width
            height: Theme.lines[Label.Role.Eyebrow]
            role: Label.Role.Eyebrow
            text: card.root.eyebrow
            color: Theme.textSecond
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: Theme.space4
        }
        CountedLabel {
            width: parent.width
            height: Theme.lines[Label.Role.Display]
            role: Label.Role.Display
            figure: card.root.total
        }
        Label {
            width: parent.width
            height: Theme.lines[Label.Role.Body]
            text: qsTr("you and your AI, moving things forward")
            color: Theme.textSecond
            elide: Text.ElideRight
        }
        Item {
            width: 1
            height: Theme.space24
        }
        StackedBar {
            width: parent.width
            shares: card.root.work
        }
        Item {
            width: 1
            height: Theme.space12
        }
        Item {
            width: parent.width
            height: card.legendLines * Theme.lines[Label.Role.Small] + (card.legendLines - 1) * Theme.space4

            Grid {
                width: parent.width
                columns: card.stacked ? 1 : 2
                columnSpacing: Theme.space24
                rowSpacing: Theme.space4

                Repeater {
                    model: card.root.work

                    ShareLegend {
                        required property int index
                        required property var modelData

                        width: Math.min(implicitWidth, card.stacked ? words.width : Math.floor((words.width - Theme.space24) / 2))
                        ink: index === 0 ? Theme.accent : Theme.accentMid
                        name: modelData.name
                        beside: modelData.beside
                        spoken: modelData.spoken
                    }
                }
            }
        }
    }
}
