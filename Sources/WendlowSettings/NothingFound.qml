pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// What stands in place of the rows while there is none: that they are looked for, or that there are none and
// what to do then.
Item {
    id: none

    required property ConnectedAppsModel model

    implicitHeight: column.height + 2 * 38

    Column {
        id: column
        anchors.centerIn: parent
        width: Math.min(Theme.scaled(360), parent.width - 2 * Theme.cardPadding)
        spacing: Theme.space8

        EmptyState {
            width: parent.width
            busy: !none.model.scanned
            iconName: "app"
            text: none.model.emptySentence
        }
        Label {
            visible: none.model.emptyAdvice.length > 0
            width: parent.width
            role: Label.Role.Small
            text: none.model.emptyAdvice
            color: Theme.textSecond
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        Button {
            visible: none.model.scanned
            anchors.horizontalCenter: parent.horizontalCenter
            small: true
            text: none.model.lookAgainWords
            onClicked: none.model.scan()
        }
    }
}
