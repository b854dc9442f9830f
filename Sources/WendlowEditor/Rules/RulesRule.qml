pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorRules

// A rule on a card. Where it can be edited a pencil stands at its end, and a field takes the place of its
// words.
Item {
    id: rule

    required property RulesLine row

    implicitHeight: Theme.scaled(36) + (rule.row.last ? 0 : 1)

    // Where what stands at the right begins.
    readonly property int end: Math.round(rule.width - rule.beside - (scope.visible ? scope.width + 16 : 0))
    readonly property int beside: rule.row.editable ? pencil.width + 24 : 17

    RulesCard {
        anchors.fill: parent
        first: rule.row.first
        last: rule.row.last
    }
    FocusRing {
        shown: rule.row.ringed && !rule.row.editing
        anchors.margins: 3
        inside: true
    }
    Label {
        id: words
        x: 17
        y: Theme.scaled(8)
        width: rule.end - x
        visible: !rule.row.editing
        text: rule.row.words
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    RulesSmall {
        id: scope
        x: rule.width - width - rule.beside
        y: Theme.scaled(10)
        width: Math.min(implicitWidth, Math.round(rule.width / 3))
        visible: text.length > 0
        text: rule.row.trailing
        elide: Text.ElideMiddle
    }
    IconButton {
        id: pencil
        x: rule.width - width - 8
        y: Theme.scaled(4)
        visible: rule.row.editable && !rule.row.editing
        focusPolicy: Qt.NoFocus
        iconName: "pencil"
        text: qsTr("Edit this rule")
        // The row does the same to a screen reader.
        Accessible.ignored: true
        onClicked: rule.row.activate()
    }
    QuietProgress {
        x: rule.width - width - 14
        y: Theme.scaled(10)
        running: rule.row.busy
    }
    Only {
        wanted: rule.row.editing

        Field {
            id: field
            x: 9
            y: Theme.scaled(4)
            width: rule.end - x
            height: Theme.scaled(28)
            leftPadding: 8
            rightPadding: 8
            value: rule.row.face.draft(rule.row.index)
            readOnly: rule.row.busy
            Accessible.name: qsTr("The rule")
            onTyped: text => rule.row.face.setDraft(rule.row.index, text)
            // One that was scrolled away and comes again takes the focus only where the list has it.
            Component.onCompleted: if (rule.row.chosen) {
                field.forceActiveFocus(Qt.TabFocusReason);
                field.selectAll();
            }
            Keys.onReturnPressed: rule.row.face.commit(rule.row.index)
            Keys.onEnterPressed: rule.row.face.commit(rule.row.index)
            Keys.onEscapePressed: rule.row.face.leaveEdit(rule.row.index)
            Keys.onPressed: event => {
                // At its ends a field lets go of these, and the list would walk off.
                event.accepted = [Qt.Key_Up, Qt.Key_Down, Qt.Key_PageUp, Qt.Key_PageDown].includes(event.key) || (event.key === Qt.Key_Left && field.cursorPosition === 0) || (event.key === Qt.Key_Right && field.cursorPosition === field.length);
            }
        }
    }
    Hint {
        text: rule.row.tip
        leading: true
        wanted: (rule.row.hovered && !pencil.hovered || rule.row.ringed) && words.truncated && !rule.row.editing
    }
}
