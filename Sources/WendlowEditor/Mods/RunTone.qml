import QtQuick
import WendlowControls
import WendlowEditorMods

// How a run ended: a dot and its words, in the colour of what that means for a person.
Item {
    id: mark

    required property int tone
    required property string text

    readonly property alias truncated: words.truncated
    readonly property color ink: mark.tone === ModsRows.Good ? Theme.accent : mark.tone === ModsRows.NeedsYou ? Theme.warning : mark.tone === ModsRows.Fault ? Theme.refusal : Theme.textSecondOnTint

    implicitWidth: words.x + words.implicitWidth
    implicitHeight: words.height

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        radius: 4
        color: mark.ink
    }
    Label {
        id: words
        x: 16
        width: Math.max(0, Math.min(implicitWidth, mark.width - x))
        role: Label.Role.Small
        text: mark.text
        color: mark.ink
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
}
