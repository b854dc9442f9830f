import QtQuick
import WendlowControls

// A sentence that stands above or beside what it speaks of; the tone is in its sign, fill and line.
Rectangle {
    id: strip

    enum Tone { Information, Warning, Refusal }

    required property string text
    property int tone: Strip.Tone.Information
    property string sign: strip.warns ? "warn" : strip.refuses ? "refuse" : "ok"

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
        width: strip.width - x - 13
        role: Label.Role.Small
        line: Theme.hintLine
        text: strip.text
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
