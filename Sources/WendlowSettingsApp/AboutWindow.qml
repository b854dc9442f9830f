pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// The small panel that says which program this is, and what it is made of.
Window {
    id: panel

    required property string productName
    required property string version
    // Maps with `name` and `licence`.
    required property var parts

    width: Theme.scaled(420)
    height: words.height + 2 * Theme.space24
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
        id: words
        x: Theme.space24
        y: Theme.space24
        width: parent.width - 2 * x
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
            text: panel.version
            color: Theme.textSecond
            horizontalAlignment: Text.AlignHCenter
        }
        Item {
            width: 1
            height: Theme.space12
        }
        Label {
            role: Label.Role.Caption
            text: qsTr("Made with")
            color: Theme.textSecond
            Accessible.role: Accessible.Heading
        }
        Hairline { width: parent.width }
        Repeater {
            model: panel.parts

            Item {
                id: part

                required property var modelData

                width: words.width
                height: Theme.scaled(20)

                Accessible.role: Accessible.ListItem
                Accessible.name: part.modelData.name + ", " + part.modelData.licence

                Label {
                    width: licence.x - Theme.space12
                    role: Label.Role.Small
                    text: part.modelData.name
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                    Accessible.ignored: true
                }
                Label {
                    id: licence
                    x: parent.width - width
                    role: Label.Role.Small
                    text: part.modelData.licence
                    color: Theme.textSecond
                    Accessible.ignored: true
                }
            }
        }
    }
}
