pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowStats

// What the day's attention went to, the most first.
Card {
    id: card

    required property StatsRoot root
    // The legends stand one below the other.
    property bool stacked: false

    readonly property int lines: card.stacked ? 3 : 1
    readonly property var inks: [Theme.accent, Theme.accentMid, Theme.stone]
    readonly property int inside: 10 + Theme.space12 + card.lines * Theme.lines[Label.Role.Small] + (card.lines - 1) * Theme.space4

    implicitHeight: 2 * 26 + card.inside

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Attention")

    StackedBar {
        id: bar
        x: Theme.space24 + 1
        y: 26
        width: card.width - 2 * x
        visible: card.root.attentionWords.length === 0
        shares: card.root.attention
    }
    Grid {
        id: legends
        x: bar.x
        y: bar.y + bar.height + Theme.space12
        columns: card.stacked ? 1 : 3
        columnSpacing: Theme.space24
        rowSpacing: Theme.space4

        Repeater {
            model: card.root.attention

            ShareLegend {
                required property int index
                required property var modelData

                width: card.stacked ? bar.width : Math.floor((bar.width - 2 * Theme.space24) / 3)
                ink: card.inks[index]
                name: modelData.name
                beside: modelData.beside
                spoken: modelData.spoken
            }
        }
    }
    CardWords {
        x: bar.x
        y: Math.round((card.height - height) / 2)
        width: bar.width
        text: card.root.attentionWords
        loading: card.root.loading
    }
}
