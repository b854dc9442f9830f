import QtQuick
import WendlowControls

// A word beside the matter at hand: its head, and what it says.
Card {
    id: card

    required property string title
    // In the tags of styled text
    required property string text
    required property string spoken

    visible: card.title.length + card.text.length > 0
    height: card.visible ? words.height + 2 * words.y : 0

    Accessible.role: Accessible.StaticText
    Accessible.name: card.spoken

    Column {
        id: words
        x: Theme.space16 + 1
        y: 15
        width: card.width - 2 * x
        spacing: 2

        Label {
            visible: card.title.length > 0
            width: parent.width
            role: Label.Role.SmallBold
            line: Theme.hintLine
            text: card.title
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            visible: card.text.length > 0
            width: parent.width
            role: Label.Role.Small
            line: Theme.hintLine
            text: card.text
            textFormat: Text.StyledText
            color: Theme.textSecondOnTint
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
    }
}
