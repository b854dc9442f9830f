import QtQuick
import WendlowControls

// The small panel that says which program this is.
Window {
    id: panel

    required property string productName
    required property string version

    width: Theme.scaled(280)
    height: Theme.scaled(132)
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    flags: Qt.Dialog | Qt.CustomizeWindowHint | Qt.WindowTitleHint | Qt.WindowCloseButtonHint
    title: qsTr("About %1").arg(panel.productName)
    color: Theme.ground

    Shortcut {
        sequence: "Escape"
        onActivated: panel.close()
    }

    Column {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space24
        spacing: Theme.space4

        Label {
            width: parent.width
            role: Label.Role.Title
            text: panel.productName
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
        }
        Label {
            width: parent.width
            role: Label.Role.Small
            text: qsTr("Version %1").arg(panel.version)
            color: Theme.textSecond
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
