import QtQuick
import WendlowControls
import WendlowOnboarding

// Something is being got ready, and there is nothing to do meanwhile.
JourneyPage {
    id: screen

    required property string text

    last: waiting

    StatusLine {
        id: waiting
        parent: screen
        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width - 2 * screen.margin)
        stop: true
        text: screen.text
    }
}
