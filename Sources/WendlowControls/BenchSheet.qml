pragma ComponentBehavior: Bound

import QtQuick

// A sheet as it stands over a window, held still: with a field that is refused, what it says of that, and the
// button that it disables.
Item {
    id: bench

    // What pops up sizes what is in it once, before it is taken out.
    property bool still: false

    implicitHeight: Theme.scaled(252)

    Component.onCompleted: sheet.panel.parent = bench

    Timer {
        running: true
        interval: 0
        onTriggered: bench.still = true
    }

    Binding {
        when: bench.still
        target: sheet.panel
        property: "width"
        value: bench.width
    }
    Binding {
        when: bench.still
        target: sheet.panel
        property: "height"
        value: bench.height
    }
    Sheet {
        id: sheet

        title: "Map a folder to /studio/atlas"
        open: false

        Label {
            width: parent.width
            text: "Work done in this folder files its memories at /studio/atlas."
            color: Theme.textSecond
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            bottomPadding: Theme.space16
        }
        Field {
            width: parent.width
            value: "studio/atlas"
            failing: true
            Accessible.name: "Folder"
        }
        Label {
            topPadding: 6
            role: Label.Role.Small
            text: "A folder’s path begins with “/”."
            color: Theme.refusal
        }

        buttons: [
            Button { text: "Cancel" },
            Button {
                kind: Button.Kind.Primary
                text: "Map folder"
                enabled: false
            }
        ]
    }
}
