import QtQuick
import WendlowControls

// Why what was asked for was not done, right below what asked for it.
Item {
    id: line

    required property string text

    implicitHeight: line.visible ? words.height : 0
    visible: line.text.length > 0

    Accessible.role: Accessible.AlertMessage
    Accessible.name: line.text

    Icon {
        y: 1
        size: Theme.scaled(14)
        name: "refuse"
        color: Theme.refusal
    }
    Label {
        id: words
        x: Theme.scaled(14) + Theme.space8
        width: line.width - x
        role: Label.Role.Small
        text: line.text
        color: Theme.refusal
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
