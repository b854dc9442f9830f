import QtQuick

// Gives what it stands in a tooltip, made only when it is first wanted.
Loader {
    id: hint

    required property string text
    required property bool wanted

    anchors.fill: parent
    active: hint.wanted && hint.text.length > 0

    sourceComponent: Item {
        ToolTip {
            text: hint.text
            visible: hint.wanted
        }
    }
}
