import QtQuick
import WendlowControls

// What stands in a line of a menu.
Item {
    id: face

    required property string text
    required property string keys
    required property bool ticked
    required property bool lit
    property int indent: 0
    property int mark: -1

    readonly property bool truncated: words.truncated
    readonly property color ink: face.enabled ? Theme.text : Theme.textSecondOnTint

    implicitWidth: words.x + words.implicitWidth + 24 + (shortcut.text.length > 0 ? 24 + shortcut.implicitWidth : 0)

    Icon {
        id: tick
        visible: face.ticked
        x: 7
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.iconSize
        name: "check"
        color: Theme.textSecondOnTint
    }
    Marked {
        id: words
        x: tick.x + tick.size + 5 + face.indent
        width: Math.min(implicitWidth, face.width - x - 8)
        anchors.verticalCenter: parent.verticalCenter
        plain: face.text
        mark: face.mark
        color: face.ink
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
    Label {
        id: shortcut
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        role: Label.Role.Small
        text: face.keys
        color: face.lit || !face.enabled ? Theme.textSecondOnTint : Theme.textSecond
        Accessible.ignored: true
    }
}
