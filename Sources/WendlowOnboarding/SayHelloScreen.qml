pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// The two things that a person does outside of this window, and that it waits for.
JourneyPage {
    id: screen

    // Without the sign that its words begin with: one is drawn.
    readonly property string warning: screen.root.bothLine.replace(/^⚠\ufe0f?\s*/, "")

    first: screen.root.primaryEnabled ? null : listening

    Connections {
        target: screen.root
        function onPrimaryChanged(): void {
            if (screen.root.primaryEnabled && listening.activeFocus)
                screen.take();
        }
    }

    JourneyHead {
        width: parent.width
        root: screen.root
    }
    Gap { size: 20 }
    HelloStep {
        width: parent.width
        number: 1
        title: screen.root.stepOne
        detail: screen.root.stepOneSub
    }
    Gap { size: Theme.space16 }
    HelloStep {
        width: parent.width
        number: 2
        title: screen.root.stepTwo
        detail: screen.root.stepTwoSub
    }
    Gap { size: 20 }
    Strip {
        width: parent.width
        height: implicitHeight
        tone: Strip.Tone.Warning
        text: screen.warning
    }
    Gap { size: Theme.space12 }
    HintCard {
        width: parent.width
        title: screen.root.hintTitle
        text: screen.root.hint
        spoken: screen.root.hintSpoken
    }

    aside: StatusLine {
        id: listening
        stop: true
        done: screen.root.helloReceived
        text: screen.root.helloLine
    }
}
