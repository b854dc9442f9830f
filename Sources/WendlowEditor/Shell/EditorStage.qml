pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
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
    readonly property int column: Math.max(0, Math.min(Theme.scaled(900), stage.width - 2 * Theme.space32))
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

    // What has the focus in place of what the stage is about, until that is there.
    property Item standIn: null

    // Takes the focus to what the stage is about.
    function enter(): void {
        const page = stage.searching ? results.itemAt(0) as SearchFace : stage.page();
        const goal = page?.first ?? page?.meanwhile ?? null;
        stage.standIn = null;
        if (goal)
            goal.forceActiveFocus(LastInput.reason);
        else
            bar.enter(LastInput.byKey);
        // What had the focus already takes no notice of being given it once more.
        const control = stage.Window.activeFocusItem as T.Control;
        if (control)
            control.focusReason = LastInput.reason;
        if (!page?.first)
            stage.standIn = stage.Window.activeFocusItem;
    }

    // What the stage is about has come.
    function arrive(): void {
        if (stage.standIn && stage.standIn.activeFocus)
            stage.enter();
    }

    // What the page behind a search comes back with shows no ring by itself.
    onSearchingChanged: if (!stage.searching && stage.activeFocus)
        entering.restart()

    // Behind what the change takes from sight and brings there.
    Timer {
        id: entering
        interval: 0
        onTriggered: stage.enter()
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
            trail: stage.root.search.trail
            onReturned: stage.root.backToResults()
            onExited: stage.exited()
            onPassed: stage.enter()
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
                over: stage
                trying: stage.root.trying
                waitingWords: stage.root.waitingWords
                onTriedAgain: stage.root.tryAgain()
                onSteppedBack: entering.restart()
                onFirstChanged: if (slot.face.open && slot.first)
                    stage.arrive()
                // A page goes later than what it was loaded into.
                onLoaded: stage.root.seenBy(slot.item)
            }
        }
    }
    Only {
        id: results
        wanted: stage.searching

        SearchFace {
            anchors.fill: stage
            margin: stage.margin
            column: stage.column
            search: stage.root.search
            backTo: stage.root.face.title
            trying: stage.root.trying
            waitingWords: stage.root.waitingWords
            onTriedAgain: stage.root.tryAgain()
            focus: true
        }
    }
}
