pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// What stands in the middle of a Button: the spinner while it is busy or its icon, and its word.
Item {
    id: face

    required property string text
    required property string iconName
    required property bool busy
    required property int role
    required property color ink

    readonly property bool truncated: word.truncated

    readonly property int lead: face.busy ? row.turning + row.spacing : face.iconName.length > 0 ? sign.size + row.spacing : 0

    implicitWidth: word.implicitWidth + face.lead
    implicitHeight: row.height

    Row {
        id: row
        readonly property int turning: Theme.scaled(14)

        anchors.centerIn: parent
        spacing: 8

        Only {
            wanted: face.busy

            Spinner {
                size: row.turning
                anchors.verticalCenter: row.verticalCenter
            }
        }
        Icon {
            id: sign
            visible: face.iconName.length > 0 && !face.busy
            size: Theme.iconSize
            name: face.iconName
            color: face.ink
            anchors.verticalCenter: parent.verticalCenter
        }
        Label {
            id: word
            width: Math.min(word.implicitWidth, face.width - face.lead)
            role: face.role
            elide: Text.ElideRight
            text: face.text
            color: face.ink
            Accessible.ignored: true
        }
    }
}
