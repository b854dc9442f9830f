pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor

// The Editor's stage on a bench. What it is over may be another one, of which a view of its own is made.
FocusScope {
    id: stand

    required property EditorRoot root

    signal exited

    clip: true

    Keys.onPressed: event => {
        event.accepted = Shortcuts.isPressed(Shortcuts.StepBack, event.key, event.modifiers) && stand.root.back();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.ground
    }
    Repeater {
        model: [stand.root]

        EditorStage {
            id: stage

            required property var modelData

            anchors.fill: stand
            root: stage.modelData as EditorRoot
            focus: true
            Component.onCompleted: stage.root.seenBy(stage)
            onExited: stand.exited()

            Connections {
                target: stage.root
                function onArrived(): void {
                    stage.enter();
                }
                function onReturned(): void {
                    stage.enter();
                }
            }
        }
    }
}
