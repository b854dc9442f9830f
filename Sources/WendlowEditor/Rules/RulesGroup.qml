import QtQuick
import WendlowControls
import WendlowEditorRules

// The head of filed rules that are delivered alike.
Item {
    id: group

    required property RulesLine row

    readonly property int above: group.row.apart ? Theme.space12 : 0

    implicitHeight: group.above + Theme.scaled(36) + (group.row.last ? 0 : 1)

    RulesCard {
        y: group.above
        width: parent.width
        height: parent.height - y
        first: group.row.first
        last: group.row.last
    }
    Item {
        y: group.above
        width: parent.width
        height: parent.height - y

        FocusRing {
            shown: group.row.ringed
            anchors.margins: 3
            inside: true
        }
        Label {
            id: name
            x: 17
            y: Theme.scaled(8)
            width: Math.min(implicitWidth, parent.width - x - count.width - 34)
            role: Label.Role.Strong
            text: group.row.words
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        RulesSmall {
            id: count
            x: name.x + name.width + 9
            y: Theme.scaled(10)
            text: group.row.number
        }
        RulesSmall {
            id: caption
            x: count.x + count.width + 9
            y: Theme.scaled(10)
            width: Math.max(0, parent.width - x - 17)
            text: group.row.beside
        }
        Hint {
            text: group.row.beside
            leading: true
            wanted: (group.row.hovered || group.row.ringed) && caption.truncated
        }
    }
}
