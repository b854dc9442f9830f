pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowSettings

// The rules of one kind in one tier, and what adds one. It is one stop for Tab; the arrows go through its
// rules. A long list scrolls in a frame of its own and makes only the rows in sight.
FocusScope {
    id: view

    required property RuleGroup group
    required property string tierTitle
    property bool known: true

    signal appWanted

    // The field has gone with what became of it, or with its Cancel.
    readonly property bool adding: view.group.adding
    onAddingChanged: if (!view.adding && view.activeFocus)
        add.forceActiveFocus(LastInput.reason)

    // A person opens the field now; one that was left open takes the focus from nobody.
    property bool opening: false

    readonly property int line: Theme.scaled(32)
    readonly property int linesInSight: 8

    implicitHeight: column.height

    function add(): void {
        if (view.group.picked)
            view.appWanted();
        else {
            view.opening = true;
            view.group.open();
            view.opening = false;
        }
    }

    // What had the focus goes, and a neighbour takes it, or what adds another.
    function remove(index: int): void {
        list.owed = list.activeFocus ? index : -1;
        view.group.remove(index);
    }

    Column {
        id: column
        width: view.width

        Item {
            width: parent.width
            height: Theme.scaled(28)

            Label {
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width - (add.visible ? add.width : 0)
                role: Label.Role.GroupTitle
                text: view.group.title
                color: Theme.textSecond
                elide: Text.ElideRight
                Accessible.role: Accessible.Heading
            }
            Button {
                id: add
                visible: view.group.addWords.length > 0 && !view.group.adding
                anchors.right: parent.right
                anchors.rightMargin: -Theme.space8
                kind: Button.Kind.Quiet
                small: true
                iconName: "plus"
                text: view.group.addWords
                hint: view.tierTitle
                onClicked: view.add()
            }
        }
        Label {
            visible: view.group.caption.length > 0
            width: parent.width
            bottomPadding: Theme.space4
            role: Label.Role.Small
            text: view.group.caption
            color: Theme.textSecond
            wrapMode: Text.Wrap
        }
        ListView {
            id: list

            // The row of this index has been taken away with the focus.
            property int owed: -1

            x: -Theme.space8
            width: parent.width + 2 * Theme.space8
            // A row that is cut in half says that there are more.
            height: (list.count > view.linesInSight ? view.linesInSight + 0.5 : list.count) * view.line
            visible: list.count > 0
            model: view.group
            interactive: list.count > view.linesInSight
            cacheBuffer: 0
            boundsBehavior: Flickable.StopAtBounds
            pixelAligned: true
            clip: list.interactive
            keyNavigationEnabled: false
            highlightFollowsCurrentItem: false

            T.ScrollBar.vertical: ScrollBar {}

            Accessible.role: Accessible.List
            Accessible.name: view.tierTitle + ", " + view.group.title

            function go(to: int, reason: int): void {
                list.currentIndex = Math.max(0, Math.min(to, list.count - 1));
                list.positionViewAtIndex(list.currentIndex, ListView.Contain);
                const entry = list.currentItem as RuleEntry;
                entry?.forceActiveFocus(reason);
                // The view may have given it the focus by now, but not for this reason, which draws the ring.
                if (entry)
                    entry.focusReason = reason;
            }

            onCountChanged: if (list.owed >= 0)
                back.restart()

            Timer {
                id: back
                interval: 0
                onTriggered: {
                    const index = list.owed;
                    list.owed = -1;
                    if (!view.activeFocus)
                        return;
                    if (list.count > 0)
                        list.go(index, Qt.TabFocusReason);
                    else
                        add.forceActiveFocus(Qt.TabFocusReason);
                }
            }

            Keys.onPressed: event => {
                const steps = {
                    [Qt.Key_Up]: list.currentIndex - 1,
                    [Qt.Key_Down]: list.currentIndex + 1,
                    [Qt.Key_PageUp]: list.currentIndex - view.linesInSight,
                    [Qt.Key_PageDown]: list.currentIndex + view.linesInSight,
                    [Qt.Key_Home]: 0,
                    [Qt.Key_End]: list.count - 1
                };
                event.accepted = event.key in steps;
                if (event.accepted)
                    list.go(steps[event.key], Qt.TabFocusReason);
            }

            ReadingOrder {
                rows: list.contentItem
            }

            delegate: RuleEntry {
                id: entry

                width: list.width
                group: view.group
                current: entry.ListView.isCurrentItem
                onRemoved: view.remove(entry.index)
                onActiveFocusChanged: if (entry.activeFocus)
                    list.currentIndex = entry.index
            }
        }
        Label {
            visible: list.count === 0 && view.known && !view.group.adding
            width: parent.width
            height: view.line
            text: qsTr("Nothing yet.")
            color: Theme.textSecond
            verticalAlignment: Text.AlignVCenter
        }
        Only {
            wanted: view.group.adding

            RuleField {
                width: column.width
                group: view.group
                taking: view.opening
                onEnded: add.forceActiveFocus(LastInput.reason)
            }
        }
    }
}
