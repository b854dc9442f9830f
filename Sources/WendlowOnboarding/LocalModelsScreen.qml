pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// How far the download of the local models has come, what it takes, and the way out of all of it.
JourneyPage {
    id: screen

    JourneyHead {
        width: parent.width
        root: screen.root
        quiet: true
    }
    Gap { size: Theme.space24 }
    Card {
        width: parent.width
        height: Math.max(list.height, none.visible ? none.height + 2 * none.y : 0) + 2

        Accessible.role: Accessible.List
        Accessible.name: screen.root.title

        Column {
            id: list
            x: 1
            y: 1
            width: parent.width - 2

            Repeater {
                id: rows
                model: screen.root.models
                delegate: ModelRow { width: list.width }
            }
        }
        EmptyState {
            id: none
            visible: rows.count === 0
            x: Theme.cardPadding
            y: Theme.space24
            width: parent.width - 2 * x
            iconName: "cpu"
            text: screen.root.modelsWords
        }
    }
    // Keeps its place while there is nothing to say.
    Label {
        width: parent.width
        topPadding: lead + Theme.space12
        role: Label.Role.Small
        text: screen.root.modelsLine.length > 0 ? screen.root.modelsLine : " "
        color: Theme.textSecondOnTint
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: screen.root.modelsLine.length === 0
    }
    Gap { size: 20 }
    HintCard {
        width: parent.width
        title: screen.root.hintTitle
        text: screen.root.hint
        spoken: screen.root.hintSpoken
    }

    wayOut: Button {
        visible: screen.root.offersCancel
        kind: Button.Kind.Quiet
        destructive: true
        text: screen.root.cancelWords
        onClicked: screen.root.askToCancel()
    }
}
