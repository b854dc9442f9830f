pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// What gets remembered: everything, except what is listed here.
ScrollPage {
    id: pane

    required property RecordingControlModel model

    readonly property bool narrow: pane.width < 600

    sideMargin: pane.narrow ? Theme.space24 : Theme.space48
    above: pane.narrow ? Theme.space24 : 40

    Component.onCompleted: pane.model.refresh()

    PaneHead {
        width: parent.width
        title: qsTr("Choose what gets remembered")
        error: pane.model.error
        retrying: pane.model.retrying
        onRetried: pane.model.refresh()
    }
    Card {
        width: parent.width
        height: recorded.height + 2 * Theme.space12

        SymbolTile {
            x: Theme.cardPadding + 1
            anchors.verticalCenter: parent.verticalCenter
            name: "record.circle"
        }
        Column {
            id: recorded
            x: Theme.cardPadding + 1 + Theme.scaled(32) + Theme.space12
            y: Theme.space12
            width: parent.width - x - Theme.cardPadding

            Label {
                width: parent.width
                role: Label.Role.Strong
                text: qsTr("We record your screen, meetings, AI chats and files")
                wrapMode: Text.Wrap
            }
            Label {
                width: parent.width
                role: Label.Role.Small
                text: qsTr("Everything is recorded so your AI can recall any detail.")
                color: Theme.textSecond
                wrapMode: Text.Wrap
            }
        }
    }
    Item {
        width: parent.width
        height: Theme.scaled(44)

        Hairline {
            width: (parent.width - except.width) / 2 - Theme.space12
            anchors.verticalCenter: parent.verticalCenter
        }
        Label {
            id: except
            anchors.centerIn: parent
            role: Label.Role.Eyebrow
            text: qsTr("EXCEPT")
            color: Theme.textSecond
        }
        Hairline {
            anchors.right: parent.right
            width: (parent.width - except.width) / 2 - Theme.space12
            anchors.verticalCenter: parent.verticalCenter
        }
    }
    TierCard {
        width: parent.width
        title: qsTr("We record what you used, not what you saw")
        body: qsTr("Your AI can still say ‘watched Netflix for two hours’ without wasting screen shots.")
        groups: pane.model.usageGroups
        known: pane.model.known
        onAppWanted: group => pane.model.chooser.openFor(group)
    }
    Item {
        width: 1
        height: Theme.space12
    }
    TierCard {
        width: parent.width
        title: qsTr("We do not record anything")
        body: qsTr("Nothing here enters memory — nothing for your AI to see.")
        always: qsTr("Private web browsing*, sites of adult nature.")
        groups: pane.model.neverGroups
        known: pane.model.known
        onAppWanted: group => pane.model.chooser.openFor(group)
    }
    Item {
        visible: others.visible
        width: 1
        height: Theme.space12
    }
    Card {
        id: others
        visible: pane.model.others.count > 0
        width: parent.width
        height: rest.height + 2 * Theme.space16

        RuleGroupView {
            id: rest
            x: Theme.cardPadding + 1
            y: Theme.space16
            width: parent.width - 2 * x
            height: implicitHeight
            group: pane.model.others
            tierTitle: pane.model.others.title
        }
    }
    Item {
        width: 1
        height: Theme.space12
    }
    Label {
        width: parent.width
        role: Label.Role.Fine
        text: qsTr("*Private browsing blocking is verified to work in Safari, Chrome, Firefox, Edge and Brave. For any other browser, add the app itself under ‘We do not record anything’.")
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
    Once {
        wanted: pane.model.chooser.open

        AppSheet {
            chooser: pane.model.chooser
        }
    }
}
