import QtQuick
import WendlowControls

// The title of a page; the chevron back hangs left of the margin, so that titles never shift.
Item {
    id: head

    required property string title
    property bool hasBack: false
    property string backTo

    property alias trailing: slot.data
    readonly property Item chevron: back

    signal back

    implicitHeight: Theme.lines[Label.Role.Title]

    IconButton {
        id: back
        // It keeps to the margin, which does not grow.
        x: -size - 2
        anchors.verticalCenter: parent.verticalCenter
        size: Math.min(Theme.scaled(24), 28)
        visible: head.hasBack
        iconName: "left"
        iconSize: Math.min(Theme.iconSize, size)
        text: qsTr("Back to %1").arg(head.backTo)
        tip: ""
        onClicked: head.back()
    }
    Label {
        id: words
        width: Math.min(implicitWidth, head.width - (slot.width > 0 ? slot.width + 16 : 0))
        role: Label.Role.Title
        text: head.title
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.role: Accessible.Heading
    }
    HoverHandler { id: pointer }
    Hint {
        text: head.title
        wanted: pointer.hovered && words.truncated
    }
    Row {
        id: slot
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space8
    }
}
