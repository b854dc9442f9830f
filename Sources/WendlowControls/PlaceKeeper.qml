import QtQuick
import WendlowControls

// Keeps a list or a grid at what it shows while its rows grow or shrink with their words: at its current row, where
// that is in sight, and otherwise at the first that is.
Item {
    id: keeper

    // A ListView or GridView.
    required property var view

    property int row: -1
    property int mode: ListView.Contain
    property int framesToGrow: 0

    Connections {
        target: Theme
        // The rows have their new size by now or not, but stand where they stood.
        function onTextScaleChanged(): void {
            const view = keeper.view;
            const current = view.currentItem;
            // The list may have become lower already, by what grows above it.
            const bottom = view.contentY + view.height * 1.25;
            const seen = current && current.y < bottom && current.y + current.height > view.contentY;
            keeper.row = seen ? view.currentIndex : view.indexAt(view.contentX + view.width / 2, view.contentY + 1);
            keeper.mode = seen ? ListView.Contain : ListView.Beginning;
            keeper.framesToGrow = keeper.row > 0 ? 2 : 0;
        }
    }
    // What stands around the list grows with the next frame, and what that brings to light with the one behind it.
    Connections {
        target: keeper.Window.window
        enabled: keeper.framesToGrow > 0
        function onFrameSwapped(): void {
            keeper.framesToGrow -= 1;
            keeper.view.forceLayout();
            keeper.view.positionViewAtIndex(keeper.row, keeper.mode);
        }
    }
}
