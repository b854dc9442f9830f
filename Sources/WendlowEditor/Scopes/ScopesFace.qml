pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorScopes

// Every scope, a row each: what is filed there, the folders that point at it, and on the selected one what
// can be done. The arrows select; Return begins to rename.
FacePage {
    id: page

    required property ScopesFaceModel face

    // Then the button stands beside the title, and the words below have all of the column.
    readonly property bool narrow: page.column < Theme.scaled(480)

    first: list.count > 0 ? list : null
    meanwhile: add
    Component.onCompleted: {
        page.face.revealed.connect(list.go);
        page.face.selectedChanged.connect(list.follow);
    }

    PageHead {
        id: head
        x: page.margin
        y: 24
        width: page.column - (page.narrow ? add.width : 0)
        title: page.face.heading
        trailing: QuietProgress { running: page.trying }
    }
    Label {
        id: intro
        x: page.margin
        anchors.top: head.bottom
        anchors.topMargin: 6
        width: page.column - (page.narrow ? 0 : add.width + Theme.space16)
        text: page.face.intro
        color: Theme.textSecond
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
    Button {
        id: add
        x: page.margin + page.column - width + 8
        y: page.narrow ? head.y + Math.round((head.height - height) / 2) : intro.y + Math.round((Theme.lines[Label.Role.Body] - height) / 2)
        kind: Button.Kind.Quiet
        small: true
        text: qsTr("+ New scope")
        onClicked: page.face.newScope()
    }
    Column {
        id: strips
        x: page.margin
        anchors.top: intro.bottom
        width: page.column
        topPadding: Theme.space12
        bottomPadding: Theme.space8
        spacing: Theme.space12

        StateStrip {
            width: parent.width
            words: page.face.strip
            warns: page.face.stripWarns
            waitingWords: page.face.reading ? page.waitingWords : ""
            trying: page.trying
            onActed: page.triedAgain()
        }
        ScopeScript {
            width: parent.width
            visible: page.face.script.length > 0
            face: page.face
        }
        Strip {
            width: parent.width
            height: implicitHeight
            visible: page.face.outcome.length > 0
            tone: page.face.refused ? Strip.Tone.Refusal : Strip.Tone.Information
            text: page.face.outcome
        }
    }
    StageWords {
        x: page.margin
        width: page.column
        anchors.verticalCenter: list.verticalCenter
        busy: page.face.reading
        text: page.face.emptyWords
    }
    ListView {
        id: list

        property bool byKey: false

        // To a row, with the focus.
        function go(index: int): void {
            list.currentIndex = index;
            page.face.selected = index;
            list.positionViewAtIndex(index, ListView.Contain);
        }
        // The row that was selected keeps being the one that the arrows begin at.
        function follow(): void {
            if (page.face.selected >= 0)
                list.currentIndex = page.face.selected;
        }
        function see(action: Item): void {
            const top = action.mapToItem(list.contentItem, 0, 0).y - Theme.space8;
            const bottom = top + action.height + Theme.space16;
            list.contentY = Math.max(bottom - list.height, Math.min(top, list.contentY));
        }
        function isInSelected(item: Item): bool {
            const row = list.itemAtIndex(page.face.selected);
            for (let up = item; up !== null; up = up.parent)
                if (up === row)
                    return true;
            return false;
        }
        function enter(): void {
            (list.currentItem ?? list).forceActiveFocus(LastInput.reason);
        }

        anchors.top: strips.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        bottomMargin: Theme.space24
        clip: true
        focus: true
        activeFocusOnTab: list.count > 0 || list.activeFocus
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        cacheBuffer: 200
        reuseItems: true
        keyNavigationEnabled: false
        model: page.face.rows
        onActiveFocusChanged: if (list.activeFocus) {
            list.byKey = LastInput.byKey;
            // By key the selection is where the focus is.
            if (list.byKey && page.face.selected < 0)
                page.face.selected = Math.max(0, list.currentIndex);
        }
        Component.onCompleted: list.follow()
        // A strip above it takes of its height.
        onHeightChanged: unfolding.restart()

        T.ScrollBar.vertical: ScrollBar {}

        ReadingOrder { rows: list.contentItem }

        Accessible.role: Accessible.List
        Accessible.name: page.face.heading

        Keys.onPressed: event => {
            const last = list.count - 1;
            const at = list.currentIndex;
            const many = Math.max(1, Math.floor(list.height / Theme.scaled(37)) - 1);
            const steps = {
                [Qt.Key_Up]: Math.max(0, at - 1),
                [Qt.Key_Down]: Math.min(last, at + 1),
                [Qt.Key_PageUp]: Math.max(0, at - many),
                [Qt.Key_PageDown]: Math.min(last, at + many),
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: last
            };
            event.accepted = event.key in steps;
            if (!event.accepted)
                return;
            list.byKey = true;
            list.go(steps[event.key]);
            list.enter();
        }
        Keys.onReturnPressed: page.face.rename()
        Keys.onEnterPressed: page.face.rename()

        delegate: ScopesRow {
            id: row

            x: page.margin - 12
            width: page.column + 24
            face: page.face
            selected: row.index === page.face.selected
            ringed: row.activeFocus && list.byKey
            onClaimed: {
                list.byKey = LastInput.byKey;
                page.face.selected = row.index;
                row.forceActiveFocus(LastInput.reason);
            }
            onReached: action => list.see(action)
            // What a row unfolds is in sight.
            onImplicitHeightChanged: if (row.selected)
                unfolding.restart()
        }
        // Behind the layout that the taller row asks for.
        Timer {
            id: unfolding
            interval: 0
            onTriggered: {
                if (page.face.selected >= 0)
                    list.positionViewAtIndex(page.face.selected, ListView.Contain);
                const action = list.activeFocus ? list.Window.activeFocusItem as Button : null;
                if (action !== null)
                    list.see(action);
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
        sequences: Shortcuts.of(Shortcuts.NewScope)
        enabled: page.visible && !page.face.sheet.open
        onActivated: page.face.newScope()
    }
    // There until it has closed.
    Only {
        id: sheet

        readonly property bool asked: page.face.sheet.open

        wanted: false
        onAskedChanged: sheet.wanted = sheet.wanted || sheet.asked

        ScopeSheet {
            model: page.face.sheet
            onClosed: {
                const focused = page.Window.activeFocusItem;
                list.follow();
                // What the sheet has made is selected by now, and is not the row that it was opened from.
                const elsewhere = list.activeFocus && page.face.selected >= 0 && !list.isInSelected(focused);
                if (!sheet.asked && (elsewhere || focused === null || focused === page.Window.contentItem))
                    list.enter();
                // It may have been opened again meanwhile.
                sheet.wanted = sheet.asked;
            }
        }
    }
}
