import QtQuick
import WendlowControls
import WendlowStats

// A figure that is counted up to once, when it comes. A screen reader hears where it ends.
Label {
    id: label

    required property StatsFigure figure

    property real part: 1

    text: label.part < 1 ? label.figure.at(label.part) : label.figure.words
    elide: Text.ElideRight
    color: label.figure.known ? Theme.text : Theme.textSecond

    Accessible.name: label.figure.words

    NumberAnimation {
        id: count
        target: label
        property: "part"
        from: 0
        to: 1
        duration: Theme.counting
        easing.type: Easing.OutQuad
    }
    Connections {
        target: label.figure

        function onChanged(): void {
            count.stop();
            label.part = 1;
            if (label.figure.known && Theme.counting > 0)
                count.restart();
        }
    }
    HoverHandler { id: pointer }
    Hint {
        text: label.figure.words
        wanted: pointer.hovered && label.truncated && label.part === 1
        leading: true
    }
}
