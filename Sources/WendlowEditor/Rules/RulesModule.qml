import QtQuick
import WendlowControls
import WendlowEditorRules

// A rules module: its name and scope, the sentence that makes a tool read it, how many rules, how fresh.
Item {
    id: module

    required property RulesLine row

    readonly property int end: Math.round(rev.x - (count.visible ? count.width + 24 : 0) - 16)

    implicitHeight: Theme.scaled(56) + 1

    RulesCard {
        anchors.fill: parent
        first: module.row.first
        last: module.row.last
    }
    FocusRing {
        shown: module.row.ringed
        anchors.margins: 3
        inside: true
    }
    Label {
        id: name
        x: 17
        y: Theme.scaled(10)
        width: Math.min(implicitWidth, module.end - x)
        role: Label.Role.Strong
        text: module.row.words
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    RulesSmall {
        x: name.x + name.width + 8
        y: Theme.scaled(12)
        width: Math.max(0, Math.min(implicitWidth, module.end - x))
        text: module.row.beside
        elide: Text.ElideMiddle
    }
    RulesSmall {
        id: sentence
        x: 17
        y: Theme.scaled(30)
        width: module.end - x
        text: module.row.under
    }
    RulesSmall {
        id: count
        x: rev.x - width - 24
        y: Theme.scaled(20)
        visible: text.length > 0
        text: module.row.number
    }
    RulesSmall {
        id: rev
        x: module.width - width - 17
        y: Theme.scaled(20)
        text: module.row.trailing
    }
    Hint {
        text: module.row.tip
        leading: true
        wanted: (module.row.hovered || module.row.ringed) && sentence.truncated
    }
}
