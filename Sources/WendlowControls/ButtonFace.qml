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

    readonly property int lead: face.busy ? 22 : face.iconName.length > 0 ? 24 : 0

    implicitWidth: word.implicitWidth + face.lead
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
