import QtQuick
import QtQuick.Templates as T

// On or off, as its owner says: a press asks for the other state and changes nothing by itself, so that
// the switch never shows what is not so. A check box to a screen reader; Qt 6.4 has no switch for one.
T.CheckBox {
    id: toggle

    required property bool on
    property string description
    // At work, but it keeps the focus that it has; whoever hears of its press does nothing then.
    property bool working: false

    property bool lit: toggle.hovered
    property bool sunk: toggle.down
    property bool ringed: toggle.visualFocus

    // Switched off while it works, a control loses the focus; it gets it back with the ring it had.
    property bool hadRing: false

    implicitWidth: Theme.scaled(36)
    implicitHeight: Theme.scaled(20)
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    // Not `checkState`: what is set by that alone is never told to a screen reader.
    checked: toggle.on
    nextCheckState: () => toggle.checkState

    Accessible.name: toggle.text
    Accessible.checked: toggle.on
    // Qt 6.4 tells a screen reader nothing of what is disabled, so the words do.
    Accessible.description: toggle.enabled && !toggle.working ? toggle.description : qsTr("Working…")
    Accessible.onPressAction: if (toggle.enabled)
        toggle.clicked()
    Accessible.onToggleAction: if (toggle.enabled)
        toggle.clicked()
    Keys.onReturnPressed: toggle.clicked()
    Keys.onEnterPressed: toggle.clicked()

    onVisualFocusChanged: if (toggle.enabled)
        toggle.hadRing = toggle.visualFocus
    onActiveFocusChanged: if (toggle.activeFocus && toggle.hadRing)
        toggle.focusReason = Qt.TabFocusReason

    contentItem: Item {}
    indicator: null

    background: SwitchFace {
        enabled: !toggle.working
        on: toggle.on
        warm: toggle.enabled && (toggle.lit || toggle.sunk)
        ringed: toggle.ringed
    }
}
