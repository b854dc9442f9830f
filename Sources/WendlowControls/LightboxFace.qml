import QtQuick

// What a lightbox looks like: a panel that cuts off what is larger than it.
Rectangle {
    id: face

    default property alias content: inside.data

    color: Theme.surface
    radius: Theme.radiusCard

    Item {
        id: inside
        anchors.fill: parent
        anchors.margins: 1
        clip: true
    }
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        radius: Theme.radiusCard
        border.width: Theme.strokeHairline
        border.color: Theme.edge
    }
}
