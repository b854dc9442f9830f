pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// The twelve words, to be written down.
JourneyPage {
    id: screen

    readonly property bool failed: screen.root.phraseFailure.length > 0

    first: screen.root.primaryEnabled ? null : tick
    last: reading

    JourneyHead {
        width: parent.width
        root: screen.root
    }
    Gap { size: 20 }
    RecoveryWords {
        visible: !screen.failed
        width: parent.width
        phrase: screen.root.phrase
        narrow: screen.narrow

        StatusLine {
            id: reading
            visible: screen.root.phraseLoading
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 2 * Theme.space24)
            stop: true
            text: qsTr("reading…")
        }
    }
    Strip {
        visible: screen.failed
        width: parent.width
        height: implicitHeight
        tone: Strip.Tone.Warning
        text: screen.root.phraseFailure
    }
    Gap { size: Theme.space16 }
    Tick {
        id: tick
        visible: !screen.failed
        enabled: screen.root.phrase.length > 0
        width: parent.width
        text: screen.root.wroteItDownTick
        on: screen.root.wroteItDown
        onClicked: screen.root.wroteItDown = !screen.root.wroteItDown
    }
    Label {
        x: screen.failed ? 0 : Theme.iconSize + Theme.space12
        width: parent.width - x
        topPadding: lead + 2
        role: Label.Role.Small
        text: screen.root.phraseHint
        color: Theme.textSecond
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
}
