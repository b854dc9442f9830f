pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// The content of the Settings window: the sidebar, and the pane that is open. The models outlive their
// panes, so that a pane that comes back shows its last state at once.
FocusScope {
    id: face

    required property SettingsRoot root

    readonly property bool showsApps: face.root.selection === "Connected Apps"

    SettingsSidebar {
        id: sidebar
        root: face.root
        height: parent.height
        focus: true
    }
    Item {
        id: stage
        anchors.left: sidebar.right
        width: parent.width - sidebar.width
        height: parent.height

        Only {
            wanted: face.showsApps

            ConnectedAppsPane {
                anchors.fill: stage
                model: face.root.connected
            }
        }
        Only {
            wanted: !face.showsApps

            PlainPane {
                anchors.fill: stage
                title: face.root.selection
            }
        }
    }
}
