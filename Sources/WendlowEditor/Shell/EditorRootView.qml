pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor

// The rail, and the stage with the open face or the page of a search. Ctrl+F and typing lead to the
// search from anywhere, Escape goes one step back.
FocusScope {
    id: view

    required property EditorRoot root

    function enterStage(): void {
        stage.enter();
    }

    Keys.onEscapePressed: event => {
        event.accepted = view.root.back();
    }
    Keys.onPressed: event => {
        const plain = (event.modifiers & ~Qt.ShiftModifier & ~Qt.KeypadModifier) === 0;
        event.accepted = plain && view.root.beginsSearch(event.text);
        if (event.accepted)
            rail.type(event.text);
    }

    Connections {
        target: view.root
        function onArrived(): void {
            view.enterStage();
        }
    }

    Shortcut {
        sequence: "Ctrl+F"
        enabled: !view.root.modal
        onActivated: rail.enterSearch()
    }

    RailView {
        id: rail
        root: view.root
        height: parent.height
        focus: true
        onExited: view.enterStage()
    }
    EditorStage {
        id: stage
        anchors.left: rail.right
        anchors.right: parent.right
        height: parent.height
        root: view.root
        onExited: rail.enterHere()
    }
}
