import QtQuick
import WendlowControls
import WendlowOnboarding

// One of the three permissions: why it is needed, how it is given, and the button that asks for it. Once it is
// there, its line stands in place of the button.
JourneyPage {
    id: screen

    first: ask

    PermissionStepper {
        width: parent.width
        height: implicitHeight
        root: screen.root
    }
    Gap { size: screen.narrow ? Theme.space24 : 36 }
    JourneyHead {
        width: parent.width
        root: screen.root
    }
    Label {
        visible: text.length > 0
        width: parent.width
        topPadding: lead + Theme.space8
        line: Theme.scaled(21)
        text: screen.root.customizeHint
        color: Theme.textSecond
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
    Gap {
        visible: note.visible
        size: 20
    }
    HintCard {
        id: note
        width: parent.width
        title: screen.root.hintTitle
        text: screen.root.hint
        spoken: screen.root.hintSpoken
    }
    Gap { size: Theme.space24 }
    Item {
        width: parent.width
        height: Math.max(Theme.buttonHeight, standing.y + standing.height)

        Button {
            id: ask
            visible: !screen.root.granted
            width: Math.min(implicitWidth, parent.width)
            kind: Button.Kind.Primary
            text: screen.root.askWords
            onClicked: screen.root.ask()
        }
        StatusLine {
            id: standing

            // Below the button where there is no room beside it.
            readonly property bool below: ask.visible && ask.width + Theme.space12 + standing.implicitWidth > parent.width

            visible: screen.root.granted || screen.root.waiting
            x: ask.visible && !standing.below ? ask.width + Theme.space12 : 0
            y: standing.below ? ask.height : 0
            width: Math.min(implicitWidth, parent.width - x)
            done: screen.root.granted
            text: screen.root.granted ? screen.root.grantedLine : screen.root.awaiting
        }
    }
    Gap {
        visible: refusal.visible
        size: Theme.space16
    }
    Strip {
        id: refusal
        visible: screen.root.refusedLine.length > 0
        width: parent.width
        height: implicitHeight
        tone: Strip.Tone.Warning
        text: screen.root.refusedLine
    }
}
