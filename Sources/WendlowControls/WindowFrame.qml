pragma ComponentBehavior: Bound

import QtQuick
import QtQml

// What every window is: the ground, the menu bar at its top, and the window's own content below.
FocusScope {
    id: frame

    // The main menu, as MenuBar takes it.
    required property var menu

    default property alias content: stage.data
    property bool altAlone: false

    focus: true

    Keys.onPressed: event => {
        frame.altAlone = event.key === Qt.Key_Alt;
    }
    Keys.onReleased: event => {
        if (event.key === Qt.Key_Alt && frame.altAlone)
            bar.enter();
        frame.altAlone = false;
    }

    Shortcut {
        sequence: "F10"
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
    }
}
