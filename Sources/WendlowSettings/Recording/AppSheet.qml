pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowSettings

// The list in which an app is picked. Typing narrows it, the arrows walk it, Return picks.
Sheet {
    id: sheet

    required property AppChooser chooser

    title: sheet.chooser.title
    open: sheet.chooser.open
    onEscaped: sheet.chooser.close()

    SearchField {
        id: field
        width: parent.width
        focus: true
        prompt: qsTr("Search apps")
        value: sheet.chooser.term
        onTyped: text => sheet.chooser.term = text
        onAccepted: sheet.pick(list.currentIndex)
        Keys.onDownPressed: list.go(list.currentIndex + 1)
        Keys.onUpPressed: list.go(list.currentIndex - 1)
    }
    Item {
        width: 1
        height: Theme.space8
    }
    ListView {
        id: list
        width: parent.width
        height: 7.5 * Theme.scaled(32)
        model: sheet.chooser.names
        currentIndex: 0
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true
        clip: true
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        onModelChanged: list.currentIndex = 0

        T.ScrollBar.vertical: ScrollBar {}

        Accessible.role: Accessible.List
        Accessible.name: sheet.title

        function go(to: int): void {
            list.currentIndex = Math.max(0, Math.min(to, list.count - 1));
            list.positionViewAtIndex(list.currentIndex, ListView.Contain);
        }

        delegate: T.ItemDelegate {
            id: app

            required property int index
            required property string modelData

            readonly property bool picked: app.ListView.isCurrentItem

            width: list.width
            height: Theme.scaled(32)
            hoverEnabled: true
            focusPolicy: Qt.NoFocus
            text: app.modelData
            onClicked: sheet.pick(app.index)

            Accessible.role: Accessible.ListItem
            Accessible.name: app.modelData
            Accessible.selectable: true
            Accessible.selected: app.picked
            Accessible.onPressAction: sheet.pick(app.index)

            contentItem: Label {
                leftPadding: Theme.space8
                rightPadding: Theme.space8
                text: app.modelData
                elide: Text.ElideRight
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
            background: Rectangle {
                radius: Theme.radiusButton
                color: app.picked ? Theme.accentSoft : app.hovered ? Theme.hover : "transparent"
            }
        }

        Label {
            visible: list.count === 0
            anchors.centerIn: parent
            role: Label.Role.Small
            text: sheet.chooser.emptyWords
            color: Theme.textSecond
        }
    }
    Item {
        visible: told.visible
        width: 1
        height: Theme.space8
    }
    RefusalLine {
        id: told
        width: parent.width
        text: sheet.chooser.note
    }

    function pick(index: int): void {
        if (index >= 0 && index < sheet.chooser.names.length)
            sheet.chooser.pick(sheet.chooser.names[index]);
    }

    buttons: [
        Button {
            text: qsTr("Other…")
            working: sheet.chooser.elsewhere
            onClicked: sheet.chooser.other()
        },
        Button {
            text: qsTr("Cancel")
            onClicked: sheet.chooser.close()
        },
        Button {
            kind: Button.Kind.Primary
            enabled: list.count > 0
            text: qsTr("Add app")
            onClicked: sheet.pick(list.currentIndex)
        }
    ]
}
