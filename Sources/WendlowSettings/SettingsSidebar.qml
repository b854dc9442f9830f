pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowSettings

// The places of the Settings window, in groups, and at the foot what holds for all of them. Tab enters it
// at the open place; the arrows move the selection.
FocusScope {
    id: sidebar

    required property SettingsRoot root

    // In a small window the places are their tiles alone.
    property bool compact: false

    implicitWidth: sidebar.compact ? Theme.scaled(22) + 41 : Theme.sidebarWidth

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Settings")

    // While a key is at work: what it opens shows its ring.
    property bool byKey: false

    function open(place: int): void {
        sidebar.byKey = true;
        sidebar.root.open(place);
        sidebar.byKey = false;
    }

    // The open place gets the focus.
    function take(): void {
        sidebar.forceActiveFocus(LastInput.reason);
    }

    Keys.onUpPressed: sidebar.open(sidebar.root.place - 1)
    Keys.onDownPressed: sidebar.open(sidebar.root.place + 1)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            sidebar.open(event.key === Qt.Key_Home ? 0 : sidebar.root.places - 1);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.sidebar
    }
    Hairline {
        anchors.right: parent.right
        height: parent.height
    }

    // Where the window is too low for them the places scroll.
    Flickable {
        id: places

        width: parent.width - 1
        height: lock.y - Theme.space8
        contentHeight: column.y + column.height
        clip: places.contentHeight > places.height
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: ScrollBar {}

        function show(place: Item): void {
            const top = place.mapToItem(places.contentItem, 0, 0).y;
            places.contentY = Math.max(Math.min(places.contentY, top - 16), top + place.height - places.height);
        }

        Column {
            id: column
            x: 12
            y: 16
            width: parent.width - 24
            spacing: 18

            Repeater {
                model: sidebar.root.groups

                delegate: Column {
                    id: group

                    required property var modelData

                    width: parent?.width ?? 0
                    spacing: 2

                    Repeater {
                        model: group.modelData

                        delegate: SidebarItem {
                            id: place

                            required property var modelData

                            width: group.width
                            text: place.modelData.title
                            iconName: place.modelData.icon
                            compact: sidebar.compact
                            here: place.modelData.place === sidebar.root.place
                            focus: place.here
                            // What has the focus cannot cease to be a stop for Tab, and would be one for good.
                            focusPolicy: place.here || place.activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                            onClicked: sidebar.root.open(place.modelData.place)
                            onActiveFocusChanged: if (place.activeFocus)
                                places.show(place)
                            // The focus goes along with the selection.
                            onHereChanged: if (place.here && sidebar.activeFocus)
                                place.forceActiveFocus(sidebar.byKey ? Qt.TabFocusReason : Qt.OtherFocusReason)
                        }
                    }
                }
            }
        }
    }

    Icon {
        id: lock
        x: sidebar.compact ? Math.round((parent.width - 1 - width) / 2) : 20
        y: sidebar.compact ? parent.height - 16 - height : foot.y + Theme.scaled(1)
        size: Theme.scaled(14)
        name: "lock"
        color: Theme.textSecondOnTint

        HoverHandler { id: pointer }
        Hint {
            text: sidebar.root.footer
            wanted: sidebar.compact && pointer.hovered
        }
    }
    Label {
        id: foot
        visible: !sidebar.compact
        x: lock.x + lock.size + 8
        y: parent.height - height - 16
        width: Theme.scaled(120)
        role: Label.Role.Fine
        text: sidebar.root.footer
        color: Theme.textSecondOnTint
        wrapMode: Text.Wrap
    }
}
