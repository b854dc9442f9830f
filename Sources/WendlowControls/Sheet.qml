pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// What has to be answered before anything else in the window: a panel in its middle, the rest behind a scrim.
// What is too tall for the window scrolls between its title and its buttons.
ModalPanel {
    id: sheet

    required property string title

    default property alias content: page.content
    property alias buttons: foot.data

    name: sheet.title
    scrimmed: Qt.rect(0, 0, sheet.roof?.width ?? 0, sheet.roof?.height ?? 0)
    place: {
        const window = sheet.scrimmed;
        if (sheet.roof === null)
            return Qt.rect(0, 0, Theme.scaled(440), 0);
        const width = Math.min(Theme.scaled(440), window.width - 2 * Theme.space24);
        const height = Math.min(head.height + page.contentHeight + foot.height + 3 * Theme.space24, window.height - 2 * Theme.space32);
        return Qt.rect(Math.round((window.width - width) / 2), Math.round((window.height - height) / 2), width, height);
    }

    Label {
        id: head
        x: Theme.space24
        y: Theme.space24
        width: parent.width - 2 * x
        role: Label.Role.Heading
        text: sheet.title
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.role: Accessible.Heading

        HoverHandler { id: pointer }
        Hint {
            text: sheet.title
            wanted: pointer.hovered && head.truncated
        }
    }
    ScrollPage {
        id: page
        anchors.top: head.bottom
        anchors.topMargin: Theme.space12
        anchors.bottom: foot.top
        anchors.bottomMargin: Theme.space12
        width: parent.width
        columnWidth: parent.width
        sideMargin: Theme.space24
        above: Theme.space12
        below: Theme.space12
    }
    Row {
        id: foot
        anchors.right: parent.right
        anchors.rightMargin: Theme.space24
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space24
        spacing: Theme.space12
    }
}
