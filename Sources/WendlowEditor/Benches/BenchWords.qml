import QtQuick
import WendlowControls

// A group of the panel of a bench whose choices are short words on one line.
Column {
    id: group

    required property string title
    // Maps with `word` and `picked`.
    required property var choices

    signal chosen(string word)

    spacing: 2

    Label {
        role: Label.Role.Caption
        text: group.title
        color: Theme.textSecondOnTint
        Accessible.role: Accessible.Heading
    }
    ChoiceWords {
        spacing: Theme.space12
        choices: group.choices
        onChosen: word => group.chosen(word)
    }
}
