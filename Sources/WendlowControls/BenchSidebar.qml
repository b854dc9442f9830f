import QtQuick

// Places of a sidebar: at rest, under the pointer, open, focused.
Rectangle {
    implicitWidth: Theme.scaled(208)
    implicitHeight: places.height + 16
    color: Theme.sidebar
    radius: Theme.radiusCard
    border.width: Theme.strokeHairline
    border.color: Theme.hairline

    Column {
        id: places
        x: 9
        y: 8
        width: parent.width - 18
        spacing: 2

        SidebarItem {
            width: parent.width
            text: "General"
            iconName: "sliders"
            here: false
        }
        SidebarItem {
            width: parent.width
            text: "Connected Apps"
            iconName: "plug"
            here: false
            lit: true
        }
        SidebarItem {
            width: parent.width
            text: "Recording Control"
            iconName: "record"
            here: true
        }
        SidebarItem {
            width: parent.width
            text: "Recovery"
            iconName: "key"
            here: false
            ringed: true
        }
    }
}
