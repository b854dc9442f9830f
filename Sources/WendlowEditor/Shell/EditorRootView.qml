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

    // What had the focus has gone.
    function recover(): void {
        if (rail.activeFocus)
            rail.enterHere();
        else
            stage.enter();
    }

    // A step back takes from sight what it steps out of, and with it the focus or at least its ring.
    function settle(before: Item): void {
        if (stage.activeFocus && view.Window.activeFocusItem !== before)
            stage.enter();
    }

    Keys.onPressed: event => {
        if (Shortcuts.isPressed(Shortcuts.StepBack, event.key, event.modifiers)) {
            const before = view.Window.activeFocusItem;
            event.accepted = view.root.back();
            if (stage.activeFocus)
                Qt.callLater(view.settle, before);
            return;
        }
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
        function onReturned(): void {
            view.enterStage();
        }
        function onTold(words: string): void {
            Speech.say(words);
        }
    }
    Connections {
        target: view.root.search
        // What has the focus speaks for itself.
        function onWalked(words: string): void {
            if (rail.typing)
                Speech.say(words);
        }
    }
    Connections {
        target: view.Window.window
        function onActiveChanged(): void {
            if (view.Window.active)
                view.root.lookAgain();
        }
    }

    Shortcut {
        sequences: Shortcuts.of(Shortcuts.Search)
        enabled: !view.root.modal
        onActivated: rail.enterSearch()
    }
    Shortcut {
        sequences: Shortcuts.of(Shortcuts.BackToResults)
        enabled: !view.root.modal && view.root.search.trail.length > 0 && !view.root.search.searching
        onActivated: view.root.backToResults()
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
