pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor
import WendlowEditorFloor
import WendlowEditorSearch

// Right of the rail: the page of a search, or the bar and the page of the face that is open, which stays
// as it is behind a search.
FocusScope {
    id: stage

    required property EditorRoot root

    readonly property bool searching: stage.root.search.searching
    // Where the words stand: in one column, with the same margins for every face, in the middle of a wide
    // stage.
    readonly property int column: Math.max(0, Math.min(900, stage.width - 2 * Theme.space32))
    readonly property int margin: Math.max(Theme.space32, Math.floor((stage.width - stage.column) / 2))

    // The focus is to go back to the rail.
    signal exited

    // Of the face that is open; null for a moment.
    function page(): FacePage {
        for (let at = 0; at < slots.count; ++at) {
            const slot = slots.itemAt(at) as FaceSlot;
            if (slot.face.open)
                return slot.page;
        }
        return null;
    }

    // Takes the focus to what the stage is about.
    function enter(): void {
        const first = stage.page()?.first ?? null;
        if (stage.searching)
            stage.forceActiveFocus(Qt.TabFocusReason);
        else if (first)
            first.forceActiveFocus(Qt.TabFocusReason);
        else
            bar.enter(true);
    }

    // What is pressed for it goes from sight, so that the focus does not stay there.
    function tryAgain(): void {
        stage.root.tryAgain();
        stage.enter();
    }

    Keys.onLeftPressed: event => {
        event.accepted = !stage.root.modal;
        if (event.accepted)
            stage.exited();
    }

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
            showsChip: stage.root.face.showsScopeChip
            onExited: stage.exited()
        }
        Repeater {
            id: slots
            model: stage.root.faces

            FaceSlot {
                id: slot

                anchors.fill: body
                anchors.topMargin: bar.height
                margin: stage.margin
                column: stage.column
                trying: stage.root.trying
                onTriedAgain: stage.tryAgain()
                // A page goes later than what it was loaded into.
                onLoaded: stage.root.seenBy(slot.item)
            }
        }
    }
    Only {
        wanted: stage.searching

        SearchFace {
            anchors.fill: stage
            margin: stage.margin
            column: stage.column
            search: stage.root.search
            backTo: stage.root.face.title
            focus: true
        }
    }
}
