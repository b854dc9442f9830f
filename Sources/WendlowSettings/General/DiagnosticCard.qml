import QtQuick
import WendlowControls
import WendlowSettings

// The diagnostic log. It shows while it is on, and while Alt is held; Alt+L works its switch.
Card {
    id: card

    required property PrivacyModel model

    required property bool altHeld

    readonly property DaemonSwitch log: card.model.diagnosticLogging
    readonly property bool wanted: card.log.on || card.log.writing || card.log.refusal.length > 0 || card.altHeld || toggle.activeFocus

    height: Math.max(words.height, toggle.height) + 2 * Theme.space16

    Shortcut {
        sequences: Shortcuts.of(Shortcuts.DiagnosticLog)
        enabled: card.visible && card.log.known
        onActivated: card.model.toggleDiagnosticLogging(!card.log.on)
    }
    Column {
        id: words
        x: Theme.cardPadding + 1
        y: Theme.space16
        width: Math.min(Theme.scaled(500), card.width - 3 * Theme.cardPadding - toggle.width)

        Label {
            width: parent.width
            role: Label.Role.Strong
            text: qsTr("Keep a diagnostic log")
            elide: Text.ElideRight
        }
        Label {
            width: parent.width
            role: Label.Role.Small
            text: card.model.diagnosticLoggingDetail
            color: Theme.textSecond
            wrapMode: Text.Wrap
        }
        RefusalLine {
            width: parent.width
            text: card.log.refusal
        }
    }
    Switch {
        id: toggle
        visible: card.log.known
        anchors.right: parent.right
        anchors.rightMargin: Theme.cardPadding + 1
        y: Theme.space16
        working: card.log.writing
        on: card.log.on
        text: qsTr("Keep a diagnostic log")
        description: card.model.diagnosticLoggingDetail
        onClicked: card.model.toggleDiagnosticLogging(!card.log.on)
    }
    Label {
        visible: !toggle.visible
        anchors.right: parent.right
        anchors.rightMargin: Theme.cardPadding + 1
        y: Theme.space16
        text: "—"
        color: Theme.textSecond
    }
}
