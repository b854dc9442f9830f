import QtQuick
import WendlowControls
import WendlowEditorRules

// A rule of a level of the stack; the first of a level says which it is.
Item {
    id: level

    required property RulesLine row

    readonly property int column: Math.min(Theme.scaled(112), Math.round(level.width / 4))
    readonly property int above: level.row.lead.length > 0 ? 8 : 0

    implicitHeight: Theme.scaled(24) + level.above + (level.row.ends ? 9 : 0)

    RulesCard {
        anchors.fill: parent
        first: level.row.first
        last: level.row.last
        lined: level.row.ends
    }
    FocusRing {
        shown: level.row.ringed
        anchors.margins: 3
        inside: true
    }
    Label {
        id: path
        x: 17
        y: level.above + Theme.scaled(2)
        width: level.column
        role: Label.Role.Strong
        text: level.row.lead
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: words
        x: 33 + level.column
        y: level.above + Theme.scaled(2)
        width: level.width - x - 17 - (mark.visible ? mark.width + 16 : 0)
        text: level.row.words
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    RulesSmall {
        id: mark
        x: level.width - width - 17
        y: level.above + Theme.scaled(4)
        visible: text.length > 0
        text: level.row.trailing
    }
    Hint {
        text: level.row.tip
        leading: true
        wanted: (level.row.hovered || level.row.ringed) && words.truncated
    }
}
