import QtQuick
import WendlowControls

// Says the words of Speech to a screen reader. Qt 6.4 knows no event that does so: a notification that
// comes on the screen is what is read aloud, so there is one, of a single clear pixel. Of words that
// follow one another closely the last are said.
Item {
    id: announcer

    property string waiting

    width: 1
    height: 1

    Connections {
        target: Speech
        enabled: announcer.Window.active
        function onSaid(words: string): void {
            announcer.waiting = words;
            pause.restart();
        }
    }
    Timer {
        id: pause
        interval: 120
        onTriggered: {
            // Said once more, it has to come on the screen once more.
            note.visible = false;
            note.words = announcer.waiting;
            note.visible = true;
            over.restart();
        }
    }
    Timer {
        id: over
        interval: 5000
        onTriggered: note.visible = false
    }
    Item {
        id: note

        property string words

        width: 1
        height: 1
        visible: false
        Accessible.role: Accessible.Notification
        Accessible.name: note.words
    }
}
