import QtQuick
import WendlowControls

// What has been achieved, with its tick.
Item {
    id: done

    // May begin with a tick of its own, in place of which one is drawn.
    required property string text

    readonly property string words: done.text.replace(/^✓\s*/, "")

    implicitHeight: label.height

    Accessible.role: Accessible.StaticText
    Accessible.name: done.words

    Icon {
        id: sign
        // Its drawing, not its outline, stands at the margin.
        x: -2
        y: Math.round((Theme.lines[Label.Role.SmallStrong] - size) / 2)
        size: Theme.scaled(14)
        name: "tick"
        color: Theme.accent
    }
    Label {
        id: label
        x: sign.size
        width: parent.width - x
        role: Label.Role.SmallStrong
        text: done.words
        color: Theme.accent
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
}
