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
    // Where the words stand: in one column, with the same margins for every face, in the middle of a wide
    // stage.
    readonly property int column: Math.max(0, Math.min(900, stage.width - 2 * Theme.space32))
    readonly property int margin: Math.max(Theme.space32, Math.floor((stage.width - stage.column) / 2))

    // The focus is to go back to the rail.
    signal exited

    // Takes the focus to what the stage is about.
    function enter(): void {
        if (stage.searching)
            stage.forceActiveFocus(Qt.TabFocusReason);
        else if (memory.visible && memory.first)
            memory.first.forceActiveFocus(Qt.TabFocusReason);
        else
            bar.enter(true);
    }

    // What is pressed for it goes from sight, so that the focus does not stay there.
    function tryAgain(): void {
        stage.root.tryAgain();
        stage.enter();
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
            margin: stage.margin
            column: stage.column
            model: stage.root.bar
            showsChip: stage.root.showsScopeChip
            onExited: stage.exited()
        }
        MemoryFace {
            id: memory
            anchors.fill: parent
            anchors.topMargin: bar.height
            visible: stage.root.stage !== "blank"
            margin: stage.margin
            column: stage.column
            face: stage.root.memories
            onTriedAgain: stage.tryAgain()
        }
        BlankStage {
            anchors.fill: parent
            anchors.topMargin: bar.height
            visible: stage.root.stage === "blank"
            title: stage.root.title
            text: stage.root.blankStage
            failed: stage.root.gaveUp
            onTriedAgain: stage.tryAgain()
        }
    }
    Only {
        wanted: stage.searching

        SearchFace {
            anchors.fill: stage
            margin: stage.margin
            column: stage.column
            root: stage.root
            focus: true
        }
    }
}
