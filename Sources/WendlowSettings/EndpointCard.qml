import QtQuick
import WendlowControls
import WendlowSettings

// The command that any other tool can be pointed at, and a button that copies it; or the sentence that
// there is none.
Card {
    id: card

    required property ConnectedAppsModel model

    readonly property bool has: card.model.endpoint.length > 0

    height: card.has ? Theme.scaled(64) : none.height + 2 * 21

    Label {
        id: none
        visible: !card.has
        x: 21
        y: 21
        width: parent.width - 42
        text: card.model.noEndpointSentence
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
    PathLine {
        visible: card.has
        x: 21
        y: Theme.scaled(13)
        width: copy.x - x - Theme.space16
        role: Label.Role.Small
        text: card.model.endpointCaption
        color: Theme.textSecond
        elide: Text.ElideRight
    }
    PathLine {
        visible: card.has
        x: 21
        y: Theme.scaled(30)
        width: copy.x - x - Theme.space16
        role: Label.Role.Body
        text: card.model.endpoint
    }
    Button {
        id: copy
        visible: card.has
        anchors.right: parent.right
        anchors.rightMargin: 21
        anchors.verticalCenter: parent.verticalCenter
        text: card.model.copyWord
        hint: card.model.endpoint
        iconName: lately.running ? "check" : "copy"
        onClicked: {
            card.model.copyEndpoint();
            lately.restart();
        }

        // Long enough to be seen, and then the button is as it was.
        Timer {
            id: lately
            interval: 1500
        }
    }
}
