import QtQuick
import WendlowControls

// A sentence that stands above or beside what it speaks of; the tone is in its sign, fill and line. What is put
// into it stands below the sentence.
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

    property int role: Label.Role.Small
    // What its user keeps free beside the sentence.
    property real reserved: 0
    default property alias more: below.data

    signal acted

    // Where its words do.
    readonly property int begin: words.x
    readonly property bool warns: strip.tone === Strip.Tone.Warning
    readonly property bool refuses: strip.tone === Strip.Tone.Refusal

    implicitHeight: words.height + below.height + 22
    radius: Theme.radiusButton
    color: strip.warns ? Theme.warningFill : strip.refuses ? Theme.refusalFill : Theme.accentSoft
    border.width: Theme.strokeHairline
    border.color: strip.warns ? Theme.warningLine : strip.refuses ? Theme.refusalLine : Theme.accentSoft

    Accessible.role: Accessible.AlertMessage
    Accessible.name: strip.text

    Icon {
        id: mark
        x: 13
        y: words.y + Math.round((words.line - height) / 2)
        size: Theme.iconSize
        name: strip.sign
        color: strip.warns ? Theme.warning : strip.refuses ? Theme.refusal : Theme.accent
    }
    Label {
        id: words
        x: mark.x + mark.size + 10
        y: 11
        width: strip.width - x - strip.reserved - (deed.visible ? deed.width + 8 : 13)
        role: strip.role
        line: Theme.hintLine
        text: strip.text
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    Column {
        id: below
        x: words.x
        y: words.y + words.height
        width: strip.width - x - 13
    }
    Button {
        id: deed
        anchors.right: parent.right
        anchors.rightMargin: 5
        y: words.y + Math.round((words.line - height) / 2)
        visible: strip.action.length > 0
        kind: Button.Kind.Quiet
        small: true
        text: strip.action
        working: strip.acting
        onClicked: if (!strip.acting)
            strip.acted()
    }
}
