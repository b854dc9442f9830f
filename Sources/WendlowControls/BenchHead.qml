import QtQuick

// A heading of the bench with its line.
Column {
    id: head

    required property string text

    spacing: 6
    bottomPadding: 12

    Label {
        role: Label.Role.Section
        text: head.text
    }
    Hairline { width: head.width }
}
