pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor

// Right of the rail: the page of a search, or the bar and the face that is open. The face stays as it is
// behind a search.
FocusScope {
    id: stage

    required property EditorRoot root

    readonly property bool searching: stage.root.stage === "search"

    // The focus is to go back to the rail.
    signal exited

    // Takes the focus to what the stage is about.
    function enter(): void {
        const first = stage.searching ? null : body.children.length > 0 ? memory.first : null;
        (first ?? stage).forceActiveFocus(Qt.TabFocusReason);
    }

    Keys.onLeftPressed: stage.exited()

    FocusScope {
        id: body
        anchors.fill: parent
        visible: !stage.searching
        focus: !stage.searching

        EditorFaceBar {
            id: bar
            width: parent.width
            model: stage.root.bar
            showsChip: stage.root.showsScopeChip
        }
        MemoryFace {
            id: memory
            anchors.fill: parent
            anchors.topMargin: bar.height
            visible: stage.root.stage !== "blank"
            face: stage.root.memories
        }
        BlankStage {
            anchors.fill: parent
            anchors.topMargin: bar.height
            visible: stage.root.stage === "blank"
            title: stage.root.title
            text: stage.root.blankStage
            failed: stage.root.gaveUp
        }
    }
    Only {
        wanted: stage.searching

        SearchFace {
            anchors.fill: stage
            root: stage.root
            focus: true
        }
    }
}
