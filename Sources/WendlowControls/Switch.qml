import QtQuick
import QtQuick.Templates as T

// On or off, as its owner says: a press asks for the other state and changes nothing by itself, so that
// the switch never shows what is not so.
T.AbstractButton {
    id: control

    required property bool on
    property string description

    property bool lit: control.hovered
    property bool sunk: control.down
    property bool ringed: control.visualFocus

    // Switched off while it works, a control loses the focus; it gets it back with the ring it had.
    property bool hadRing: false

    readonly property bool warm: control.enabled && (control.lit || control.sunk)
    readonly property color offLine: !control.enabled ? Theme.edge : control.warm ? Theme.textSecondOnTint : Theme.control
    readonly property color onFill: !control.enabled ? Theme.accentMid : control.warm ? Theme.accentHover : Theme.accent

    implicitWidth: 36
    implicitHeight: 20
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.CheckBox
    Accessible.name: control.text
    Accessible.description: control.description
    Accessible.checkable: true
    Accessible.checked: control.on
    Accessible.onPressAction: control.click()
    Accessible.onToggleAction: control.click()
    Keys.onReturnPressed: control.click()
    Keys.onEnterPressed: control.click()

    onVisualFocusChanged: if (control.enabled)
        control.hadRing = control.visualFocus
    onActiveFocusChanged: if (control.activeFocus && control.hadRing)
        control.focusReason = Qt.TabFocusReason

    contentItem: Item {}

    background: Rectangle {
        radius: height / 2
        color: control.on ? control.onFill : "transparent"
        border.width: control.on ? 0 : Theme.strokeControl
        border.color: control.offLine

        Rectangle {
            id: knob

            readonly property int across: control.on ? 16 : 12

            width: knob.across
            height: knob.across
            radius: knob.across / 2
            x: control.on ? 18 : 4
            anchors.verticalCenter: parent.verticalCenter
            color: control.on ? (control.enabled ? Theme.onAccent : Theme.surface) : control.offLine

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
            shown: control.ringed
            around: 10
        }
    }
}
