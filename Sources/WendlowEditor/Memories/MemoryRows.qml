pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorMemories

// A list of memories, with the heads of their groups where there are some. The arrows go from line to line,
// Return opens and closes, Ctrl+C copies; more is in a menu.
ListView {
    id: list

    required property MemoryLines lines
    // Each of its memories, closed.
    required property bool twoLines
    // The lines stand in it; the list itself takes the whole stage, for the wheel and its bar.
    required property int margin
    required property int column
    property int indent: 0

    readonly property int rowHeight: Theme.scaled(list.twoLines ? 56 : 40)

    property bool byKey: false
    property int hoverIndex: -1

    property int copiedIndex: -1

    signal toggled(int index)
    signal appeared(int index)
    // To the last line, of which there may be more than are here.
    signal endAsked

    // Brings a line into sight with the focus at it.
    function show(index: int): void {
        list.currentIndex = index;
        list.positionViewAtIndex(index, ListView.Contain);
    }

    // How far a key moves through an opened memory; 0: not at all.
    function readingStep(key: int): real {
        const page = Math.max(list.rowHeight, list.height - list.rowHeight);
        switch (key) {
        case Qt.Key_Up:
            return -list.rowHeight;
        case Qt.Key_Down:
            return list.rowHeight;
        case Qt.Key_PageUp:
            return -page;
        case Qt.Key_PageDown:
            return page;
        default:
            return 0;
        }
    }

    // Moves through an opened memory that is taller than the list. Gives whether there was more of it that way.
    function readOn(by: real): bool {
        if (by === 0 || list.currentItem === null)
            return false;
        const line = list.currentItem;
        if (line.height <= list.height)
            return false;
        const above = list.contentY - line.y;
        const below = line.y + line.height - list.contentY - list.height;
        const left = by > 0 ? below : above;
        if (left < 1)
            return false;
        list.contentY += by > 0 ? Math.min(by, left) : -Math.min(-by, left);
        return true;
    }

    function tinted(index: int): bool {
        return index === list.hoverIndex || (index === list.currentIndex && list.activeFocus);
    }

    // What has been copied is told where it was copied from.
    function copy(text: string): void {
        if (!Clipboard.copy(text))
            return;
        list.copiedIndex = list.currentIndex;
        over.restart();
        Speech.say(qsTr("Copied"));
    }

    function openMenu(x: real, y: real): void {
        if (list.currentItem === null || (list.currentItem as MemoryRow).head)
            return;
        menu.at = Qt.point(x, y + list.contentY);
        menu.wanted = true;
    }

    // A menu leaves the focus nowhere.
    function leaveMenu(): void {
        menu.wanted = false;
        list.forceActiveFocus(LastInput.reason);
    }

    model: list.lines
    clip: true
    activeFocusOnTab: list.count > 0 || list.activeFocus
    boundsBehavior: Flickable.StopAtBounds
    bottomMargin: Theme.space24
    highlightMoveDuration: 0
    cacheBuffer: 200
    // A row that scrolls in takes the place of one that scrolled out, much faster than it is made.
    reuseItems: true
    onActiveFocusChanged: if (list.activeFocus)
        list.byKey = LastInput.byKey
    onCountChanged: if (list.currentIndex < 0 && list.count > 0)
        list.currentIndex = 0

    ReadingOrder { rows: list.contentItem }
    PlaceKeeper { view: list }
    // A menu that is taken away before it has closed takes the focus along.
    Timer {
        id: leave
        interval: 0
        onTriggered: list.leaveMenu()
    }
    Timer {
        id: over
        interval: 1500
        onTriggered: list.copiedIndex = -1
    }
    Only {
        id: menu

        property point at

        wanted: false

        Item {
            x: menu.at.x
            y: menu.at.y

            Menu {
                id: choices

                title: qsTr("Memory")

                readonly property bool known: (list.currentItem as MemoryRow)?.known ?? false

                Component.onCompleted: {
                    choices.open();
                    choices.currentIndex = LastInput.byKey ? 0 : -1;
                }
                onClosed: leave.restart()

                MenuItem {
                    text: qsTr("Copy")
                    keys: Shortcuts.told(Shortcuts.CopyMemory)
                    enabled: choices.known
                    onTriggered: list.copy(list.lines.textOf(list.currentIndex))
                }
                MenuItem {
                    text: qsTr("Copy with Why")
                    enabled: choices.known
                    onTriggered: list.copy(list.lines.textWithWhy(list.currentIndex))
                }
                MenuItem {
                    text: qsTr("Copy ID")
                    onTriggered: list.copy(list.lines.idOf(list.currentIndex))
                }
            }
        }
    }

    T.ScrollBar.vertical: ScrollBar {}

    // Behind the layout that the taller row asks for.
    Timer {
        id: unfolding
        interval: 0
        onTriggered: list.positionViewAtIndex(list.currentIndex, ListView.Contain)
    }

    Accessible.role: Accessible.List

    Keys.onPressed: event => {
        list.byKey = true;
        if (Shortcuts.isPressed(Shortcuts.CopyMemory, event.key, event.modifiers)) {
            list.copy(list.lines.textOf(list.currentIndex));
            event.accepted = true;
            return;
        }
        if (Shortcuts.isPressed(Shortcuts.MemoryMenu, event.key, event.modifiers)) {
            const line = list.currentItem;
            if (line !== null)
                list.openMenu(list.margin + 24, Math.max(0, line.y - list.contentY + Math.min(line.height, list.rowHeight) - 8));
            event.accepted = true;
            return;
        }
        if (list.readOn(list.readingStep(event.key))) {
            event.accepted = true;
            return;
        }
        const page = Math.max(1, Math.floor(list.height / list.rowHeight) - 1);
        const steps = {
            [Qt.Key_Home]: 0,
            [Qt.Key_PageUp]: Math.max(0, list.currentIndex - page),
            [Qt.Key_PageDown]: Math.min(list.count - 1, list.currentIndex + page)
        };
        event.accepted = event.key in steps || event.key === Qt.Key_End;
        if (event.key in steps)
            list.show(steps[event.key]);
        else if (event.accepted)
            list.endAsked();
    }
    Keys.onReturnPressed: list.toggled(list.currentIndex)
    Keys.onEnterPressed: list.toggled(list.currentIndex)
    Keys.onSpacePressed: list.toggled(list.currentIndex)

    delegate: MemoryRow {
        id: row

        x: list.margin - 12
        width: list.column + 24
        twoLines: list.twoLines
        indent: list.indent
        chosen: row.ListView.isCurrentItem && list.activeFocus
        ringed: row.chosen && list.byKey
        outdone: list.hoverIndex >= 0
        underlined: !row.last && row.index + 1 < list.count && !list.tinted(row.index) && !list.tinted(row.index + 1) && !row.open
        onHoveredChanged: {
            if (row.hovered)
                list.hoverIndex = row.index;
            else if (list?.hoverIndex === row.index) // the list may have gone first
                list.hoverIndex = -1;
        }
        copied: row.index === list.copiedIndex
        onPressed: {
            list.byKey = false;
            list.currentIndex = row.index;
            list.forceActiveFocus(Qt.MouseFocusReason);
        }
        onMenuAsked: point => {
            list.byKey = false;
            list.currentIndex = row.index;
            list.forceActiveFocus(Qt.MouseFocusReason);
            const place = row.mapToItem(list, point.x, point.y);
            list.openMenu(place.x, place.y);
        }
        onClicked: list.toggled(row.index)
        // What a row unfolds is in sight.
        onImplicitHeightChanged: if (row.open && row.ListView.isCurrentItem)
            unfolding.restart()
        onWanted: list.appeared(row.index)
        // A row that waits for its next use is no row to a screen reader either.
        ListView.onPooled: row.visible = false
        ListView.onReused: {
            row.visible = true;
            if (!row.head)
                row.wanted();
        }
    }
}
