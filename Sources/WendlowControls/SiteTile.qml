import QtQuick
import WendlowControls

// A site's icon, or its first letter where it has none that is a picture.
Rectangle {
    id: tile

    required property string letter
    required property var picture

    width: Theme.scaled(16)
    height: Theme.scaled(16)
    radius: Theme.radiusTag
    color: icon.empty ? Theme.well : "transparent"
    border.width: icon.empty ? Theme.strokeHairline : 0
    border.color: Theme.hairline

    Accessible.ignored: true

    Label {
        visible: icon.empty
        anchors.centerIn: parent
        role: Label.Role.GroupTitle
        text: tile.letter
        color: Theme.textSecondOnTint
        Accessible.ignored: true
    }
    SitePicture {
        id: icon
        anchors.fill: parent
        picture: tile.picture
    }
}
