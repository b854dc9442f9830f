pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// A line of the sheet of the keys: what they do, and each way to press them on a key of its own.
Item {
    id: line

    required property string title
    required property var keys

    implicitHeight: Theme.scaled(32)

    Accessible.role: Accessible.ListItem
    Accessible.name: line.title
    Accessible.description: line.keys.length > 1 ? qsTr("%1 or %2").arg(line.keys[0]).arg(line.keys[1]) : line.keys[0]

    Label {
        id: words
        anchors.verticalCenter: parent.verticalCenter
        width: ways.x - Theme.space12
        text: line.title
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true

        HoverHandler { id: pointer }
        Hint {
            text: line.title
            wanted: pointer.hovered && words.truncated
        }
    }
    Row {
        id: ways
        x: parent.width - width
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Repeater {
            model: line.keys

            Rectangle {
                id: way

                required property string modelData

                width: keys.implicitWidth + 14
                height: Theme.scaled(22)
                radius: Theme.radiusTag
                color: Theme.surface
                border.width: Theme.strokeHairline
                border.color: Theme.edge

                Label {
                    id: keys
                    anchors.centerIn: parent
                    role: Label.Role.Small
                    text: way.modelData
                    color: Theme.textSecondOnTint
                    Accessible.ignored: true
                }
            }
        }
    }
}
