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

    implicitWidth: row.width
    implicitHeight: row.height

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 8

        Spinner {
            visible: face.busy
            size: 14
            anchors.verticalCenter: parent.verticalCenter
        }
        Icon {
            visible: face.iconName.length > 0 && !face.busy
            name: face.iconName
            color: face.ink
            anchors.verticalCenter: parent.verticalCenter
        }
        Label {
            role: face.role
            text: face.text
            color: face.ink
            Accessible.ignored: true
        }
    }
}
