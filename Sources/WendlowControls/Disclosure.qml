import QtQuick

// The chevron that opens and closes what stands below its row.
IconButton {
    id: control

    required property bool open

    iconName: control.open ? "down" : "right"
    tip: ""

    Accessible.checkable: true
    Accessible.checked: control.open
}
