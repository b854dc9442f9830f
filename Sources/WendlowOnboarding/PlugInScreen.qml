pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// The AI apps of this machine, each of which can be plugged in.
JourneyPage {
    id: screen

    first: rows.count > 0 ? rows.itemAt(0) : null

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
        Accessible.name: qsTr("AI apps on this Mac")

        Column {
            id: list
            x: 1
            y: 1
            width: parent.width - 2

            Repeater {
                id: rows
                model: screen.root.apps
                delegate: PlugInRow {
                    id: app
                    width: list.width
                    onAsked: on => screen.root.setWired(app.appId, on)
                }
            }
        }
        Column {
            id: none
            visible: rows.count === 0
            x: Theme.cardPadding
            y: Theme.space32
            width: parent.width - 2 * x
            spacing: Theme.space4

            EmptyState {
                width: parent.width
                iconName: "app"
                text: screen.root.appsWords
            }
            Label {
                visible: text.length > 0
                width: parent.width
                role: Label.Role.Small
                text: screen.root.appsAdvice
                color: Theme.textSecond
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
    }
    Gap { size: 6 }
    Button {
        visible: screen.root.allWords.length > 0
        anchors.right: parent.right
        anchors.rightMargin: -8
        kind: Button.Kind.Quiet
        small: true
        text: screen.root.allWords
        onClicked: screen.root.toggleAll()
    }
}
