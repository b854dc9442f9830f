import QtQuick

// A menu as it looks when open, with its second line under the pointer.
Rectangle {
    implicitWidth: Theme.scaled(232)
    implicitHeight: lines.height + 10
    color: Theme.surface
    radius: Theme.radiusCard
    border.width: Theme.strokeHairline
    border.color: Theme.edge

    Column {
        id: lines
        x: 5
        y: 5
        width: parent.width - 10

        MenuItem {
            width: parent.width
            text: "My real data"
            keys: "Ctrl+4"
            checkable: true
            checked: true
        }
        MenuItem {
            width: parent.width
            text: "Power user"
            keys: "Ctrl+3"
            lit: true
        }
        MenuRule {
            width: parent.width
        }
        MenuItem {
            width: parent.width
            text: "Reset World"
        }
        MenuItem {
            width: parent.width
            text: "Redo"
            keys: "Ctrl+Shift+Z"
            enabled: false
        }
    }
}
