import QtQuick
import WendlowControls
import WendlowOnboarding

// The journey is over.
JourneyPage {
    id: screen

    above: 92

    JourneyHead {
        width: parent.width
        root: screen.root
        titleRole: Label.Role.Display
    }
}
