pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorMeetings

// The lines of a transcript. At first none of them is chosen, so that a key that is still held down deletes
// nothing; Tab chooses the first in sight, and goes on from there. When a line has gone, none is chosen again.
ListView {
    id: list

    required property MeetingsFaceModel face
    // Where Tab goes from the last line.
    required property Item leave

    // Where Tab goes on when the chosen line has gone; -1: at what is in sight.
    property int resume: -1
    property bool byKey: true
    // Wide enough for most names, and no more of a narrow panel than a quarter.
    readonly property int speakerWidth: Math.min(Theme.scaled(56), Math.round(list.width / 4))

    // Moves through the lines. Gives whether the key does so.
    function move(key: int): bool {
        const page = Math.max(40, list.height - 40);
        switch (key) {
        case Qt.Key_PageUp:
            list.contentY -= page;
            break;
        case Qt.Key_PageDown:
            list.contentY += page;
            break;
        case Qt.Key_Home:
            list.positionViewAtBeginning();
            list.contentY = list.originY - list.topMargin;
            return true;
        case Qt.Key_End:
            list.positionViewAtEnd();
            return true;
        default:
            return false;
        }
        list.returnToBounds();
        return true;
    }

    // The first line that begins in sight.
    function firstInSight(): int {
        const spot = list.width / 2;
        for (let y = 0; y < list.height; y += 8) {
            const at = list.indexAt(spot, list.contentY + y);
            if (at >= 0 && (list.itemAtIndex(at)?.y ?? -1) >= list.contentY - 1)
                return at;
        }
        return list.indexAt(spot, list.contentY + 1);
    }

    function isInSight(index: int): bool {
        const item = list.itemAtIndex(index);
        return item !== null && item.y + item.height > list.contentY && item.y < list.contentY + list.height;
    }

    // By Tab, or back. Gives whether there was a line that way.
    function step(by: int): bool {
        let at = list.currentIndex;
        if (at >= 0 && list.isInSight(at))
            at += by;
        else if (list.resume >= 0 && (list.isInSight(list.resume) || list.resume === list.count))
            at = by > 0 ? list.resume : list.resume - 1;
        else
            at = list.firstInSight();
        list.resume = -1;
        if (at < 0 || at >= list.count)
            return false;
        list.byKey = true;
        list.currentIndex = at;
        list.positionViewAtIndex(at, ListView.Contain);
        return true;
    }

    function erase(again: bool): void {
        if (!again && list.currentIndex >= 0)
            list.face.eraseLine(list.currentIndex);
    }

    model: list.face.lines
    currentIndex: -1
    clip: true
    topMargin: Theme.space4
    bottomMargin: Theme.space12
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    highlightFollowsCurrentItem: false
    cacheBuffer: 100
    keyNavigationEnabled: false
    reuseItems: true

    T.ScrollBar.vertical: ScrollBar {}

    ReadingOrder { rows: list.contentItem }

    Accessible.role: Accessible.List

    Keys.onTabPressed: if (!list.step(1)) {
        list.currentIndex = -1;
        list.leave.forceActiveFocus(Qt.TabFocusReason);
    }
    Keys.onBacktabPressed: if (list.currentIndex < 0 || !list.step(-1)) {
        list.currentIndex = -1;
        list.leave.forceActiveFocus(Qt.BacktabFocusReason);
    }
    Keys.onReturnPressed: event => list.erase(event.isAutoRepeat)
    Keys.onEnterPressed: event => list.erase(event.isAutoRepeat)
    Keys.onSpacePressed: event => list.erase(event.isAutoRepeat)
    Keys.onPressed: event => {
        event.accepted = Shortcuts.isPressed(Shortcuts.EraseLine, event.key, event.modifiers);
        if (event.accepted)
            list.erase(event.isAutoRepeat);
    }

    // Lines below one that has gone come to stand where it was, and under the pointer: the second press of
    // a double click is not meant for them.
    Timer {
        id: shifted
        interval: 500
    }
    // What comes to stand above the lines leaves those in sight where they are, but for the beginning, which
    // it would cover.
    property real lastY: 0
    onYChanged: {
        shifted.restart();
        if (!list.atYBeginning)
            list.contentY += list.y - list.lastY;
        list.lastY = list.y;
    }
    Connections {
        target: list.face.lines
        function onRowsAboutToBeRemoved(parent: var, first: int, last: int): void {
            shifted.restart();
            if (list.currentIndex < first || list.currentIndex > last)
                return;
            list.resume = first;
            list.currentIndex = -1;
        }
        function onRowsInserted(): void {
            shifted.restart();
        }
        function onModelReset(): void {
            list.resume = -1;
            list.currentIndex = -1;
        }
    }

    delegate: TranscriptLine {
        id: row

        width: list.width
        speakerWidth: list.speakerWidth
        chosen: row.ListView.isCurrentItem && list.activeFocus
        ringed: row.chosen && list.byKey
        onErased: list.face.eraseLine(row.index)
        onClicked: if (!shifted.running)
            list.face.eraseLine(row.index)
        // A row that waits for its next use is no row to a screen reader either.
        ListView.onPooled: row.visible = false
        ListView.onReused: row.visible = true
    }
}
