pragma ComponentBehavior: Bound

import QtQuick
import WendlowEditor

// The content of the Editor's window: a view of the world in force, a new one for each.
FocusScope {
    id: face

    required property EditorHost host

    Repeater {
        model: [face.host.root]

        EditorRootView {
            id: view

            required property var modelData

            anchors.fill: face
            root: view.modelData as EditorRoot
            Component.onCompleted: view.root.seenBy(view)
            focus: true
        }
    }
}
