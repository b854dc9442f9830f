import QtQuick

// The body of a Switch: an outline with a small knob when off, filled with a larger one when on.
Rectangle {
    id: face

    required property bool on
    required property bool warm
    required property bool ringed

    readonly property color offLine: !face.enabled ? Theme.edge : face.warm ? Theme.textSecondOnTint : Theme.control
    readonly property color onFill: !face.enabled ? Theme.accentMid : face.warm ? Theme.accentHover : Theme.accent

    radius: height / 2
    color: face.on ? face.onFill : "transparent"
    border.width: face.on ? 0 : 1
    border.color: face.offLine

    // Borders are whole pixels wide: half a pixel more is one at half strength.
    Rectangle {
        visible: !face.on
        anchors.fill: parent
        anchors.margins: 1
        radius: height / 2
        color: "transparent"
        border.width: 1
        border.color: Qt.alpha(face.offLine, Theme.strokeControl - 1)
    }
    Rectangle {
        id: knob

        property int across: face.on ? Theme.scaled(16) : Theme.scaled(12)

        width: knob.across
        height: knob.across
        radius: knob.across / 2
        x: face.on ? Theme.scaled(18) : Theme.scaled(4)
        anchors.verticalCenter: parent.verticalCenter
        color: !face.on ? face.offLine : face.enabled ? Theme.inkOnAccent : Theme.surface

        Behavior on x {
            enabled: Theme.switchTurn > 0
            NumberAnimation { duration: Theme.switchTurn; easing.type: Easing.OutQuad }
        }
        Behavior on across {
            enabled: Theme.switchTurn > 0
            NumberAnimation { duration: Theme.switchTurn; easing.type: Easing.OutQuad }
        }
    }
    FocusRing {
        shown: face.ringed
        around: face.radius
    }
}
