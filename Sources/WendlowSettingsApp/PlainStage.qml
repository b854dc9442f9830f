import QtQuick
import WendlowControls

// The stage of a window whose content is still to come: it says so, and nothing else.
FocusScope {
    id: stage

    // What the window shows the place of; empty when its title says it all.
    property string subject

    Column {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space48
        spacing: Theme.space8

        Label {
            visible: stage.subject.length > 0
            width: parent.width
            role: Label.Role.Heading
            text: stage.subject
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
        }
        EmptyState {
            width: parent.width
            iconName: "clock"
            text: qsTr("Nothing here yet.")
        }
    }
}
