pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// What lies over all else in the window and takes its keys. They go in, to what asks for them there, stay in, and
// are given back when it has gone.
T.Popup {
    id: popup

    // Whether its owner wants it; it may be seen for a while after.
    required property bool open

    // It has gone from sight, and the keys are where they were.
    signal gone

    property Item before: null

    // Whether another one has the keys by now, which may have opened as this one closed.
    function passedOn(): bool {
        for (let at = popup.parent.Window.activeFocusItem; at !== null; at = at.parent) {
            if (at === T.Overlay.overlay)
                return true;
        }
        return false;
    }

    function giveBack(): void {
        if (popup.open)
            return;
        if (popup.before !== null && popup.before.visible && !popup.passedOn())
            popup.before.forceActiveFocus(LastInput.reason);
        popup.before = null;
        popup.gone();
    }

    padding: 0
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    // What is in it is the dialog to a screen reader. What the template puts around that would be another, of no name.
    Component.onCompleted: popup.contentItem.parent.Accessible.ignored = true
    onAboutToShow: popup.before = popup.parent.Window.activeFocusItem
    onClosed: back.start()

    // What was pressed instead may take the focus first.
    readonly property Timer later: Timer {
        id: back
        interval: 0
        onTriggered: popup.giveBack()
    }
}
