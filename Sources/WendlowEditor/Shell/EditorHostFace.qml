pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor

// The content of the Editor's window: a view of the world in force, a new one for each. What is made up says
// so.
FocusScope {
    id: face

    required property EditorHost host

    FocusKeeper {
        content: face
        onLost: if (!face.host.posing)
            (views.itemAt(0) as EditorRootView)?.recover()
    }
    Strip {
        id: mark
        width: face.width
        height: visible ? implicitHeight : 0
        visible: face.host.madeUp
        radius: 0
        sign: "info"
        text: qsTr("These memories are made up.")
        action: qsTr("Back to my real data")
        onActed: face.host.backToRealData()
    }
    Repeater {
        id: views
        model: [face.host.root]

        EditorRootView {
            id: view

            required property var modelData

            anchors.fill: face
            anchors.topMargin: mark.height
            root: view.modelData as EditorRoot
            Component.onCompleted: view.root.seenBy(view)
            focus: true
        }
    }
}
