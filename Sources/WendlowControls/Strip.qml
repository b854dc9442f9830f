import QtQuick
import WendlowControls

// A sentence that stands above or beside what it speaks of; the tone is in its sign, fill and line.
Rectangle {
    id: strip

    enum Tone { Information, Warning, Refusal }

    required property string text
    // What can be done about it, if anything: a word at the right.
    property string action
    // It is being done.
    property bool acting: false
    property int tone: Strip.Tone.Information
    property string sign: strip.warns ? "warn" : strip.refuses ? "refuse" : "ok"

    signal acted

    readonly property bool warns: strip.tone === Strip.Tone.Warning
    readonly property bool refuses: strip.tone === Strip.Tone.Refusal

    implicitHeight: words.height + 22
    radius: Theme.radiusButton
    color: strip.warns ? Theme.warningFill : strip.refuses ? Theme.refusalFill : Theme.accentSoft
    border.width: Theme.strokeHairline
    border.color: strip.warns ? Theme.warningLine : strip.refuses ? Theme.refusalLine : Theme.accentSoft

    Accessible.role: Accessible.AlertMessage
    Accessible.name: strip.text

    Icon {
        x: 13
        y: 12
        name: strip.sign
        color: strip.warns ? Theme.warning : strip.refuses ? Theme.refusal : Theme.accent
    }
    Label {
        id: words
        x: 39
        y: 11
        width: strip.width - x - (deed.visible ? deed.width + 8 : 13)
        role: Label.Role.Small
        line: Theme.hintLine
        text: strip.text
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    Button {
        id: deed
        anchors.right: parent.right
        anchors.rightMargin: 5
        y: 6
        visible: strip.action.length > 0
        kind: Button.Kind.Quiet
        small: true
        text: strip.action
        working: strip.acting
        onClicked: if (!strip.acting)
            strip.acted()
    }
}
