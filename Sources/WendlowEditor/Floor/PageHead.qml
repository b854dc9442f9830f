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

    implicitHeight: 28

    IconButton {
        id: back
        x: -26
        y: 2
        size: 24
        visible: head.hasBack
        iconName: "left"
        iconSize: 16
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
        y: 6
        spacing: Theme.space8
    }
}
