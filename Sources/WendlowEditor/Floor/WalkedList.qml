pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// Rows that the keys walk, from one that can be stopped at to the next; Return and Space do what a row is for.
// It takes the whole stage, for the wheel and its bar; its rows stand in the column.
ListView {
    id: list

    // Of most rows, for the page keys.
    required property int rowHeight
    // Knows by `stop(from, by)` and `isStop(index)` which rows can be stopped at; none: each can be.
    property var stops: null

    // The focus came by key, and shows where it is.
    property bool byKey: false

    signal activated(int index)

    // The row to which so many steps lead from here, -1 and the number of rows being the ends; the same where
    // there is none further on.
    function stop(from: int, by: int): int {
        return list.stops ? list.stops.stop(from, by) : Math.max(0, Math.min(list.count - 1, from + by));
    }
    function isStop(index: int): bool {
        return list.stops ? list.stops.isStop(index) : true;
    }

    // To a stop.
    function go(index: int): void {
        list.currentIndex = index;
        list.positionViewAtIndex(index, ListView.Contain);
        // What stands above the first stop comes into sight with it.
        if (index === list.stop(-1, 1))
            list.positionViewAtBeginning();
    }

    // A row has been pressed, or speaks for itself.
    function claim(index: int): void {
        list.byKey = LastInput.byKey;
        if (list.isStop(index))
            list.currentIndex = index;
        (list.currentItem ?? list).forceActiveFocus(LastInput.reason);
    }

    // The current row is a stop, as long as there is one.
    function settle(): void {
        const at = list.currentIndex;
        if (list.count === 0 || (at >= 0 && at < list.count && list.isStop(at)))
            return;
        const before = list.stop(at, -1);
        list.currentIndex = before >= 0 && before !== at && before < list.count ? before : list.stop(-1, 1);
    }

    // A key that is held down opens what it opens once.
    function actOnce(again: bool): void {
        if (again || list.currentIndex < 0)
            return;
        list.byKey = true;
        list.activated(list.currentIndex);
    }

    clip: true
    topMargin: 4
    bottomMargin: Theme.space24
    activeFocusOnTab: list.count > 0 || list.activeFocus
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    cacheBuffer: 200
    keyNavigationEnabled: false
    onCountChanged: settling.restart()
    onActiveFocusChanged: if (list.activeFocus) {
        list.byKey = LastInput.byKey;
        list.settle();
    }

    T.ScrollBar.vertical: ScrollBar {}

    ReadingOrder { rows: list.contentItem }
    PlaceKeeper { view: list }

    Accessible.role: Accessible.List

    Keys.onPressed: event => {
        const at = list.currentIndex;
        const many = Math.max(1, Math.floor(list.height / list.rowHeight) - 1);
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
        list.go(list.stop(...steps[event.key]));
    }
    Keys.onReturnPressed: event => list.actOnce(event.isAutoRepeat)
    Keys.onEnterPressed: event => list.actOnce(event.isAutoRepeat)
    Keys.onSpacePressed: event => list.actOnce(event.isAutoRepeat)

    // When all rows are in their places.
    Timer {
        id: settling
        interval: 0
        onTriggered: list.settle()
    }
}
