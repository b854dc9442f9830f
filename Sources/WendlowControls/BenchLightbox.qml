pragma ComponentBehavior: Bound

import QtQuick

// A lightbox as it looks when open, held still, and one that opens from its button and closes back to it.
Column {
    id: half

    property bool open: false

    spacing: 8

    BenchHead {
        width: half.width
        text: qsTr("Lightbox")
    }
    Rectangle {
        width: half.width
        height: 180
        color: Theme.ground
        radius: Theme.radiusButton

        Rectangle {
            anchors.fill: parent
            color: Theme.stage
            radius: Theme.radiusButton
        }
        LightboxFace {
            anchors.centerIn: parent
            width: parent.width - 64
            height: 132

            EmptyState {
                anchors.centerIn: parent
                width: parent.width - 32
                iconName: "stack"
                text: "No picture is kept of this moment."
            }
        }
    }
    Button {
        id: door
        text: "Open it"
        onClicked: half.open = true
    }
    Lightbox {
        title: "A lightbox"
        open: half.open
        origin: door
        wanted: Qt.size(520, 320)
        onEscaped: half.open = false

        Label {
            x: Theme.space24
            y: Theme.space24
            role: Label.Role.Heading
            text: "A lightbox"
        }
    }
}
