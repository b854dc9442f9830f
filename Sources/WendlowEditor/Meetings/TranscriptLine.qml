import QtQuick
import WendlowControls

// A line of a transcript: who spoke, the words, and with the pointer or the focus at it what deletes it.
Item {
    id: row

    required property int index
    required property string speaker
    required property string words
    required property bool erasing

    required property int speakerWidth
    required property bool chosen
    required property bool ringed

    readonly property bool tinted: pointer.hovered || row.chosen

    // By a screen reader.
    signal erased
    // By the pointer.
    signal clicked

    implicitHeight: said.height + 14
    height: implicitHeight

    Accessible.role: Accessible.ListItem
    Accessible.name: row.speaker + ": " + row.words
    Accessible.description: row.erasing ? qsTr("Deleting…") : row.chosen ? qsTr("Return deletes it") : ""
    Accessible.selectable: true
    Accessible.selected: row.chosen

    HoverFill {
        x: Theme.space12
        width: row.width - 2 * x
        height: row.height
        radius: Theme.radiusButton
        lit: row.tinted

        FocusRing {
            shown: row.ringed
            inside: true
        }
    }
    Label {
        id: name
        x: Theme.space24
        y: 9
        width: row.speakerWidth
        role: Label.Role.SmallStrong
        text: row.speaker
        color: row.tinted ? Theme.textSecondOnTint : Theme.textSecond
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: said
        x: name.x + name.width + Theme.space16
        y: 7
        width: bin.x - x - Theme.space12
        text: row.words
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    IconButton {
        id: bin
        x: row.width - width - 18
        y: 5
        size: 24
        // A screen reader finds it in every line.
        iconName: row.tinted ? "trash" : ""
        text: qsTr("Delete this line")
        busy: row.erasing
        // The list has the focus, and this is what its line is for.
        focusPolicy: Qt.NoFocus
        Accessible.description: row.words
        Accessible.onPressAction: row.erased()
        onClicked: row.clicked()
    }
    HoverHandler { id: pointer }
    Hint {
        anchors.leftMargin: Theme.space24
        leading: true
        text: row.speaker
        wanted: name.truncated && row.tinted && !bin.hovered
    }
}
