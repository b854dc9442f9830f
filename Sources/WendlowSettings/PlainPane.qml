import QtQuick
import WendlowControls

// A pane whose content is still to come: its title over a plain stage that says so.
ScrollPage {
    id: pane

    required property string title

    Label {
        role: Label.Role.Title
        text: pane.title
        width: parent.width
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }
    Item {
        width: parent.width
        height: Theme.space24
    }
    Card {
        width: parent.width
        height: Theme.scaled(120)

        EmptyState {
            anchors.centerIn: parent
            width: parent.width - 2 * Theme.cardPadding
            iconName: "clock"
            text: qsTr("This pane is not here yet.")
        }
    }
}
