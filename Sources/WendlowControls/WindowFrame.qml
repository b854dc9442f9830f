pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import WendlowControls

// What every window is: the ground, the menu bar at its top, and the window's own content below.
FocusScope {
    id: frame

    // The main menu, as MenuBar takes it.
    required property var menu

    default property alias content: stage.data

    focus: true

    AltKey {
        id: alt
        within: frame
        onTapped: bar.enter()
    }
    Shortcut {
        sequences: Shortcuts.of(Shortcuts.MenuBar)
        onActivated: bar.enter()
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.ground
    }
    FocusScope {
        id: stage
        anchors.fill: parent
        anchors.topMargin: Theme.menuBarHeight
        focus: true
    }
    Announcer {}
    MenuBar {
        id: bar
        width: parent.width
        source: frame.menu
        altHeld: alt.lone
    }
}
