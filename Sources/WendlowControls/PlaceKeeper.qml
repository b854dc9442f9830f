import QtQuick
import WendlowControls

// Keeps a list or a grid at what it shows while its rows grow or shrink with their words: at its current row, where
// that is in sight, and otherwise at the first that is.
Item {
    id: keeper

    // A ListView or GridView.
    required property var view

    readonly property real textScale: Theme.textScale

    // The rows have their new size by now or not, but stand where they stood.
    onTextScaleChanged: {
        const view = keeper.view;
        const current = view.currentItem;
        const seen = current && current.y < view.contentY + view.height && current.y + current.height > view.contentY;
        moving.row = seen ? view.currentIndex : view.indexAt(view.contentX + view.width / 2, view.contentY + 1);
        moving.mode = seen ? ListView.Contain : ListView.Beginning;
        moving.restart();
    }

    Timer {
        id: moving

        property int row
        property int mode

        interval: 0
        onTriggered: if (moving.row > 0) {
            keeper.view.forceLayout();
            keeper.view.positionViewAtIndex(moving.row, moving.mode);
        }
    }
}
