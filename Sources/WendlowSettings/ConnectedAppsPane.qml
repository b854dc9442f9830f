pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// The AI apps found on this machine, each with its switch, and the command for any other tool.
ScrollPage {
    id: pane

    required property ConnectedAppsModel model

    readonly property bool failed: pane.model.error.length > 0
    readonly property bool narrow: pane.width < Theme.scaled(600)

    sideMargin: pane.narrow ? Theme.space24 : Theme.space48
    above: pane.narrow ? Theme.space24 : 40

    Component.onCompleted: pane.model.scan()

    Label {
        role: Label.Role.Title
        width: parent.width
        text: pane.model.mastheadTitle
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    Item {
        width: 1
        height: 6
    }
    Label {
        width: Math.min(parent.width, Theme.scaled(520))
        text: pane.model.mastheadBody
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
    Item {
        width: 1
        height: Theme.space24
    }
    Strip {
        visible: pane.failed
        width: parent.width
        tone: Strip.Tone.Refusal
        text: pane.model.error
    }
    Card {
        visible: !pane.failed
        width: parent.width
        height: rows.height + 2

        Accessible.role: Accessible.List
        Accessible.name: qsTr("AI apps on this Mac")

        Column {
            id: rows
            x: 1
            y: 1
            width: parent.width - 2

            Repeater {
                id: apps
                model: pane.model.apps
                delegate: ConnectedAppRow {
                    width: rows.width
                    model: pane.model
                }
            }
            NothingFound {
                visible: apps.count === 0
                width: parent.width
                model: pane.model
            }
        }
    }
    Item {
        width: 1
        height: Theme.sectionAbove
    }
    Label {
        role: Label.Role.Section
        width: parent.width
        text: pane.model.otherToolsTitle
        Accessible.role: Accessible.Heading
    }
    Item {
        width: 1
        height: Theme.sectionBelow
    }
    EndpointCard {
        width: parent.width
        model: pane.model
    }
}
