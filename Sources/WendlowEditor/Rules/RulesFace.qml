pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
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
    ListView {
        id: list

        property bool byKey: false

        // To a stop, with the focus.
        function go(index: int): void {
            list.currentIndex = index;
            list.positionViewAtIndex(index, ListView.Contain);
            // What stands above the first stop comes into sight with it.
            if (index === page.face.rows.stop(-1, 1))
                list.positionViewAtBeginning();
        }

        // The current row is a stop, as long as there is one.
        function settle(): void {
            const at = list.currentIndex;
            if (at >= 0 && at < list.count && page.face.rows.isStop(at))
                return;
            const before = page.face.rows.stop(at, -1);
            list.currentIndex = before >= 0 && before !== at ? before : page.face.rows.stop(-1, 1);
        }

        anchors.top: outcome.visible ? outcome.bottom : head.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        topMargin: 4
        bottomMargin: Theme.space24
        clip: true
        focus: true
        activeFocusOnTab: list.count > 0 || list.activeFocus
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        cacheBuffer: 200
        keyNavigationEnabled: false
        model: page.face.rows
        onCountChanged: settling.restart()
        onActiveFocusChanged: if (list.activeFocus) {
            list.byKey = LastInput.byKey;
            list.settle();
        }

        T.ScrollBar.vertical: ScrollBar {}

        ReadingOrder { rows: list.contentItem }
        PlaceKeeper { view: list }

        Accessible.role: Accessible.List
        Accessible.name: page.face.listName

        Keys.onPressed: event => {
            const rows = page.face.rows;
            const at = list.currentIndex;
            const many = Math.max(1, Math.floor(list.height / Theme.scaled(37)) - 1);
            const steps = {
                [Qt.Key_Up]: [at, -1],
                [Qt.Key_Down]: [at, 1],
                [Qt.Key_PageUp]: [at, -many],
                [Qt.Key_PageDown]: [at, many],
                [Qt.Key_Home]: [-1, 1],
                [Qt.Key_End]: [list.count, -1]
            };
            event.accepted = event.key in steps;
            if (!event.accepted)
                return;
            list.byKey = true;
            list.go(rows.stop(...steps[event.key]));
        }
        Keys.onReturnPressed: list.act()
        Keys.onEnterPressed: list.act()
        Keys.onSpacePressed: list.act()

        function act(): void {
            list.byKey = true;
            page.face.activate(list.currentIndex);
        }

        // When all rows of a new picture are in their places.
        Timer {
            id: settling
            interval: 0
            onTriggered: list.settle()
        }

        delegate: RulesRow {
            id: row

            x: page.margin
            width: page.column
            face: page.face
            chosen: row.ListView.isCurrentItem && list.activeFocus
            ringed: row.chosen && list.byKey
            onPressed: row.claimed()
            onClaimed: {
                list.byKey = LastInput.byKey;
                if (row.stop)
                    list.currentIndex = row.index;
                (list.currentItem ?? list).forceActiveFocus(LastInput.reason);
            }
        }
    }
    Hairline {
        x: page.margin
        y: list.y
        width: page.column
        visible: !list.atYBeginning
    }
    Shortcut {
        sequence: "Ctrl+N"
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
