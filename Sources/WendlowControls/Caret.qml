import QtQuick

// Where the next letter goes in a field: it stands still while it is typed at, and blinks when it rests.
Rectangle {
    id: caret

    required property TextInput input

    property bool lit: true

    width: 1
    color: Theme.accent
    visible: caret.input.cursorVisible && caret.lit

    Timer {
        id: blink
        interval: 500
        repeat: true
        running: caret.input.cursorVisible && !Theme.reduceMotion
        onTriggered: caret.lit = !caret.lit
        onRunningChanged: caret.lit = true
    }
    Connections {
        target: caret.input
        function onCursorPositionChanged(): void {
            caret.lit = true;
            if (blink.running)
                blink.restart();
        }
    }
}
