pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorRules

// The rules at a scope: what rides every prompt, the stack a session receives, the rules modules, and what
// is filed. One list, whose stops the arrows walk; Return edits the rule that it stops at.
FacePage {
    id: page

    required property RulesFaceModel face

    first: list.count > 0 ? list : null
    Component.onCompleted: {
        page.face.revealed.connect(list.go);
        page.face.retried.connect(page.triedAgain);
    }

    PageHead {
        id: head
        x: page.margin
        y: 24
        width: page.column
        title: page.face.heading
        trailing: QuietProgress { running: page.face.refreshing || page.trying }
    }
    Strip {
        id: outcome
        x: page.margin
        anchors.top: head.bottom
        anchors.topMargin: Theme.space12
        width: page.column
        visible: page.face.outcome.length > 0
        tone: page.face.refused ? Strip.Tone.Refusal : Strip.Tone.Information
        text: page.face.outcome
    }
    StageWords {
        x: page.margin
        width: page.column
        anchors.verticalCenter: parent.verticalCenter
        busy: true
        text: page.face.emptyWords
    }
    WalkedList {
        id: list
        anchors.top: outcome.visible ? outcome.bottom : head.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        rowHeight: Theme.scaled(37)
        focus: true
        model: page.face.rows
        stops: page.face.rows
        onActivated: index => page.face.activate(index)
        Accessible.name: page.face.listName

        delegate: RulesRow {
            id: row

            x: page.margin
            width: page.column
            face: page.face
            chosen: row.ListView.isCurrentItem && list.activeFocus
            ringed: row.chosen && list.byKey
            onPressed: row.claimed()
            onClaimed: list.claim(row.index)
        }
    }
    Hairline {
        x: page.margin
        y: list.y
        width: page.column
        visible: !list.atYBeginning
    }
    Shortcut {
        sequences: Shortcuts.of(Shortcuts.NewRule)
        enabled: page.visible && !page.face.composer.open
        onActivated: page.face.newRule()
    }
    // There until it has closed.
    Only {
        id: sheet

        readonly property bool asked: page.face.composer.open

        wanted: false
        onAskedChanged: sheet.wanted = sheet.wanted || sheet.asked

        RuleComposer {
            model: page.face.composer
            onClosed: {
                const focused = page.Window.activeFocusItem;
                if (!sheet.asked && (focused === null || focused === page.Window.contentItem))
                    list.forceActiveFocus(Qt.TabFocusReason);
                // It may have been opened again meanwhile.
                sheet.wanted = sheet.asked;
            }
        }
    }
}
