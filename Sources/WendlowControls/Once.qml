import QtQuick

// Makes its one component when that is first wanted, and keeps it: what a window may never show costs its
// first frame nothing, and what has been shown goes and comes as its own.
Repeater {
    id: once

    required property bool wanted

    onWantedChanged: if (once.wanted)
        once.model = 1
}
