pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A page that scrolls when its window is short: one column with margins, kept in sight of the focus.
Flickable {
    id: page

    default property alias content: column.data
    property int columnWidth: Theme.scaled(660)
    property int sideMargin: Theme.space48
    property int above: 40
    property int below: page.sideMargin

    contentWidth: page.width
    contentHeight: column.y + column.implicitHeight + page.below
    boundsBehavior: Flickable.StopAtBounds
    pixelAligned: true
    clip: page.contentHeight > page.height

    T.ScrollBar.vertical: ScrollBar {}

    // What is read stays in its place while the words grow or shrink. The column grows with the next frame, and what
    // that brings to light with the one behind it.
    property real place: 0
    property int framesToGrow: 0

    onContentHeightChanged: if (page.framesToGrow > 0)
        page.moveTo(page.place * page.contentHeight)

    Connections {
        target: Theme
        function onTextScaleChanged(): void {
            page.place = page.contentY / Math.max(1, page.contentHeight);
            page.framesToGrow = 2;
        }
    }
    Connections {
        target: page.Window.window
        enabled: page.framesToGrow > 0
        function onFrameSwapped(): void {
            page.framesToGrow -= 1;
            page.follow();
        }
    }

    function moveTo(position: real): void {
        page.contentY = Math.max(0, Math.min(position, page.contentHeight - page.height));
    }

    // Brings what has the focus into sight, with room for its ring.
    function follow(): void {
        const item = page.Window.activeFocusItem;
        for (let up = item; up; up = up.parent) {
            if (up !== column)
                continue;
            const spot = item.mapToItem(page.contentItem, 0, 0);
            // What is taller than the page is read where it is.
            if (item.height + 48 > page.height && spot.y < page.contentY + page.height - 48 && spot.y + item.height > page.contentY)
                return;
            if (spot.y - 24 < page.contentY)
                page.moveTo(spot.y - 24);
            else if (spot.y + item.height + 24 > page.contentY + page.height)
                page.moveTo(spot.y + item.height + 24 - page.height);
            return;
        }
    }

    Keys.onPressed: event => {
        const step = Theme.scaled(40);
        const steps = {
            [Qt.Key_PageUp]: page.contentY - page.height + step,
            [Qt.Key_PageDown]: page.contentY + page.height - step,
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: page.contentHeight,
            [Qt.Key_Up]: page.contentY - step,
            [Qt.Key_Down]: page.contentY + step
        };
        event.accepted = event.key in steps;
        if (event.accepted)
            page.moveTo(steps[event.key]);
    }

    Connections {
        target: page.Window.window
        function onActiveFocusItemChanged(): void {
            page.follow();
        }
    }

    Column {
        id: column
        x: page.sideMargin
        y: page.above
        width: Math.max(0, Math.min(page.columnWidth, page.width - 2 * page.sideMargin))
    }
}
