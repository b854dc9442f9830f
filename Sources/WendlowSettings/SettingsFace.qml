pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// The content of the Settings window: the sidebar, and the pane that is open. The models outlive their
// panes, so that a pane that comes back shows its last state at once.
FocusScope {
    id: face

    required property SettingsRoot root

    readonly property bool inSight: face.Window.visibility !== Window.Hidden
    onInSightChanged: if (!face.inSight)
        face.root.leave()

    // A row looks after its own; what is left is that all of it has gone.
    FocusKeeper {
        content: face
        onLost: if (!stage.item || !(face.Window.activeFocusItem instanceof ConnectedAppRow))
            sidebar.take()
    }
    SettingsSidebar {
        id: sidebar
        root: face.root
        // Words take the more room, the larger they are: what is left beside them counts.
        compact: face.width < Theme.sidebarWidth + 496
        height: parent.height
        focus: true
    }
    Loader {
        id: stage
        anchors.left: sidebar.right
        width: parent.width - sidebar.width
        height: parent.height

        function show(): void {
            // Of the same face with another model nothing would be made anew.
            stage.source = "";
            stage.setSource(face.root.face, face.root.properties);
        }

        Component.onCompleted: stage.show()
    }
    Connections {
        target: face.root

        function onSelectionChanged(): void {
            stage.show();
        }
        function onSaid(words: string): void {
            Speech.say(words);
        }
    }
}
