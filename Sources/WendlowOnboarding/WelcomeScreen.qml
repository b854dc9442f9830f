import QtQuick
import WendlowControls
import WendlowOnboarding

// What Wendlow is, and the two ticks that come before anything else.
JourneyPage {
    id: screen

    above: 92
    first: screen.root.primaryEnabled ? null : terms

    JourneyHead {
        width: parent.width
        root: screen.root
        titleRole: Label.Role.Display
    }
    Gap { size: Theme.space32 }
    Tick {
        id: terms
        width: parent.width
        text: screen.root.termsTick
        link: screen.root.termsWord
        on: screen.root.agreedToTerms
        onClicked: screen.root.agreedToTerms = !screen.root.agreedToTerms
        onLinkOpened: screen.root.openTerms()
    }
    Tick {
        width: parent.width
        text: screen.root.updatesTick
        on: screen.root.autoInstall
        onClicked: screen.root.autoInstall = !screen.root.autoInstall
    }
}
