import QtQuick
import WendlowControls

// A numbered step that a person takes elsewhere.
Item {
    id: step

    required property int number
    required property string title
    required property string detail

    implicitHeight: Math.max(circle.height, words.height)

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1. %2. %3").arg(step.number).arg(step.title).arg(step.detail)

    Rectangle {
        id: circle
        y: 1
        width: Theme.scaled(24)
        height: width
        radius: width / 2
        color: Theme.accentSoft

        Label {
            anchors.centerIn: parent
            role: Label.Role.SmallBold
            text: step.number
            color: Theme.accent
            Accessible.ignored: true
        }
    }
    Column {
        id: words
        x: circle.width + Theme.space12
        width: parent.width - x
        spacing: 2

        Label {
            width: parent.width
            role: Label.Role.Heading
            text: step.title
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            role: Label.Role.Small
            text: step.detail
            color: Theme.textSecond
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
    }
}
