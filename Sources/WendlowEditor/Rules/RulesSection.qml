import QtQuick
import WendlowControls
import WendlowEditorRules

// The title of a section, what it comes to, and what can be added to it.
Item {
    id: section

    required property RulesLine row

    implicitHeight: title.y + title.height + 8

    Label {
        id: title
        y: section.row.apart ? Theme.sectionAbove : 8
        width: Math.min(implicitWidth, section.width - (add.visible ? add.width : 0))
        role: Label.Role.Section
        text: section.row.words
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignLeft
        Accessible.role: Accessible.Heading
    }
    RulesSmall {
        id: beside
        x: title.width + 13
        y: title.y + Math.round((title.height - height) / 2)
        width: Math.max(0, section.width - x)
        visible: text.length > 0
        text: section.row.beside
        Accessible.ignored: false
    }
    HoverHandler { id: pointer }
    Hint {
        text: (title.truncated ? title.text : "") + (title.truncated && beside.truncated ? "\n" : "") + (beside.truncated ? beside.text : "")
        leading: true
        wanted: pointer.hovered
    }
    Button {
        id: add
        x: section.width - width + 8
        y: title.y + Math.round((title.height - height) / 2)
        visible: section.row.canAdd
        kind: Button.Kind.Quiet
        small: true
        text: qsTr("+ New rule")
        // The list has the focus, and this is one of its stops.
        focusPolicy: Qt.NoFocus
        ringed: section.row.ringed
        onClicked: section.row.face.newRule()
    }
}
