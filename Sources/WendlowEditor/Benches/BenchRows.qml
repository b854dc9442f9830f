pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// A group of the panel of a bench: its title, and one of several on a row each.
Column {
    id: group

    required property string title
    // Maps with `word` and `picked`.
    required property var choices

    signal chosen(string word)

    Label {
        width: parent.width
        bottomPadding: 2
        role: Label.Role.Caption
        text: group.title
        color: Theme.textSecondOnTint
        horizontalAlignment: Text.AlignLeft
        Accessible.role: Accessible.Heading
    }
    Repeater {
        model: group.choices

        ChoiceRow {
            id: choice

            required property var modelData

            width: group.width
            height: Theme.scaled(26)
            text: choice.modelData.word
            on: choice.modelData.picked
            onClicked: group.chosen(choice.text)
        }
    }
}
