pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// A sentence, and below it one line for each thing that it speaks of.
Column {
    id: block

    required property string title
    required property var lines

    visible: block.title.length > 0
    topPadding: Theme.space16
    spacing: Theme.space4

    Label {
        width: parent.width
        role: block.lines.length > 0 ? Label.Role.Section : Label.Role.Body
        text: block.title
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
    Repeater {
        model: block.lines

        delegate: Item {
            id: entry

            required property string modelData

            width: block.width
            height: words.height

            Rectangle {
                x: 4
                y: Math.round(Theme.hintLine / 2) - 1
                width: 4
                height: 4
                radius: 2
                color: Theme.textSecond
            }
            Label {
                id: words
                x: Theme.space16
                width: parent.width - x
                role: Label.Role.Small
                line: Theme.hintLine
                text: entry.modelData
                color: Theme.textSecond
                // Of a path every letter is told, wherever it has to be broken.
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
        }
    }
}
