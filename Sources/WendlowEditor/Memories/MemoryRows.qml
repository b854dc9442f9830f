pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A list of memories, with the heads of their groups where there are some. The arrows go from line to line,
// Return opens and closes.
ListView {
    id: list

    required property int rowHeight
    // The lines stand in it; the list itself takes the whole stage, for the wheel and its bar.
    required property int margin
    required property int column
    property int indent: 0

    property bool byKey: false
    property int hoverIndex: -1
    property bool pressed: false

    signal toggled(int index)
    signal appeared(int index)

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

    clip: true
    activeFocusOnTab: list.count > 0 || list.activeFocus
    boundsBehavior: Flickable.StopAtBounds
    bottomMargin: Theme.space24
    highlightMoveDuration: 0
    cacheBuffer: 200
    // A row that scrolls in takes the place of one that scrolled out, much faster than it is made.
    reuseItems: true
    onActiveFocusChanged: if (list.activeFocus && !list.pressed)
        list.byKey = true

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
        if (list.readOn(list.readingStep(event.key))) {
            event.accepted = true;
            return;
        }
        const last = list.count - 1;
        const page = Math.max(1, Math.floor(list.height / list.rowHeight) - 1);
        const steps = {
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: last,
            [Qt.Key_PageUp]: Math.max(0, list.currentIndex - page),
            [Qt.Key_PageDown]: Math.min(last, list.currentIndex + page)
        };
        event.accepted = event.key in steps;
        if (event.accepted)
            list.show(steps[event.key]);
    }
    Keys.onReturnPressed: list.toggled(list.currentIndex)
    Keys.onEnterPressed: list.toggled(list.currentIndex)
    Keys.onSpacePressed: list.toggled(list.currentIndex)

    delegate: MemoryRow {
        id: row

        x: list.margin - 12
        width: list.column + 24
        rowHeight: list.rowHeight
        indent: list.indent
        chosen: row.ListView.isCurrentItem && list.activeFocus
        ringed: row.chosen && list.byKey
        outdone: list.hoverIndex >= 0
        underlined: !row.last && row.index + 1 < list.count && !list.tinted(row.index) && !list.tinted(row.index + 1) && !row.open
        onHoveredChanged: {
            if (row.hovered)
                list.hoverIndex = row.index;
            else if (list.hoverIndex === row.index)
                list.hoverIndex = -1;
        }
        onPressed: {
            list.pressed = true;
            list.byKey = false;
            list.currentIndex = row.index;
            list.forceActiveFocus(Qt.MouseFocusReason);
            list.pressed = false;
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
