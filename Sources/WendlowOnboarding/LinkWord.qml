import QtQuick
import WendlowControls

// A word that opens a page elsewhere.
Label {
    id: word

    signal opened

    readonly property bool ringed: word.activeFocus && LastInput.byKey

    color: pointer.hovered ? Theme.accentHover : Theme.accent
    font: Theme.fonts[Label.Role.Body]
    activeFocusOnTab: true

    Accessible.role: Accessible.Link
    Accessible.name: word.text
    Accessible.focusable: true
    Accessible.onPressAction: word.opened()
    Keys.onReturnPressed: word.opened()
    Keys.onEnterPressed: word.opened()
    Keys.onSpacePressed: word.opened()

    Rectangle {
        y: Math.round(parent.height / 2 + Theme.scaled(7))
        width: parent.width
        height: 1
        color: word.color
    }
    HoverHandler {
        id: pointer
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        // The box that it stands in is not to be pressed with it.
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: word.opened()
    }
    FocusRing {
        shown: word.ringed
        around: Theme.radiusTag
    }
}
