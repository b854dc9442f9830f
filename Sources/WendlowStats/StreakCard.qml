import QtQuick
import WendlowControls
import WendlowStats

// The longest run without an interruption. Its lines stand on those of the day beside it.
Card {
    id: card

    required property StatsRoot root
    // Its words have the room for one line.
    property bool oneLine: false

    implicitHeight: words.y + words.height + (card.oneLine ? Theme.space24 : below.height)

    Accessible.role: Accessible.StaticText
    Accessible.name: card.root.streak.words + ", " + card.root.streak.label + (card.root.streakTag.length > 0 ? ", " + card.root.streakTag : "")

    Column {
        id: words
        x: Theme.space24 + 1
        y: Theme.space24
        width: card.width - 2 * x

        Label {
            width: parent.width
            height: Theme.lines[Label.Role.Caption]
            role: Label.Role.Caption
            text: card.root.streakTag
            color: Theme.textSecond
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Item {
            width: 1
            height: Theme.space4
        }
        CountedLabel {
            width: parent.width
            height: Theme.lines[Label.Role.Display]
            role: Label.Role.Display
            figure: card.root.streak
            Accessible.ignored: true
        }
        Label {
            // So narrow that both lines are about as long.
            width: card.oneLine ? parent.width : Math.min(parent.width, Theme.scaled(160))
            height: (card.oneLine ? 1 : 2) * Theme.lines[Label.Role.Body]
            text: card.root.streak.label
            color: Theme.textSecond
            wrapMode: Text.Wrap
            maximumLineCount: card.oneLine ? 1 : 2
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    // What the day beside it has below its words, less the second line.
    Item {
        id: below
        height: Theme.space24 + 10 + Theme.space12 + Theme.lines[Label.Role.Small] + 30 - Theme.lines[Label.Role.Body]
    }
}
