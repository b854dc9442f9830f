import QtQuick

// A switch with its spinner beside it while it is busy, as rows have it.
Row {
    id: pair

    required property bool on
    property alias lit: toggle.lit
    property alias sunk: toggle.sunk
    property alias ringed: toggle.ringed
    property bool busy: false

    spacing: 8

    Switch {
        id: toggle
        on: pair.on
        text: "Recording"
    }
    Spinner {
        visible: pair.busy
        anchors.verticalCenter: parent.verticalCenter
    }
}
