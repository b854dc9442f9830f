pragma ComponentBehavior: Bound

import QtQuick

// Gives what it stands in a tooltip, made only while it is wanted.
Repeater {
    id: hint

    required property string text
    required property bool wanted
    property bool leading: false

    anchors.fill: parent
    model: hint.wanted && hint.text.length > 0 ? 1 : 0

    Item {
        width: hint.width
        height: hint.height

        ToolTip {
            text: hint.text
            leading: hint.leading
            // Below a row, and not over what stands beside it.
            widest: hint.leading ? Math.min(Theme.scaled(480), hint.width - 28) : Theme.scaled(480)
            visible: true
        }
    }
}
