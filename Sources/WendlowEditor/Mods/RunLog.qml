import QtQuick
import WendlowControls
import WendlowEditorMods

// A run in a log: when, of which lane where the log is of several, how it ended, how many turns it took. With a
// report it leads there.
DisclosureRow {
    id: run

    required property ModsLine line

    // Too little room for one line.
    readonly property bool narrow: run.width < Theme.scaled(run.line.beside.length > 0 ? 520 : 440)
    readonly property int room: run.width - 36
    readonly property color second: run.tinted ? Theme.textSecondOnTint : Theme.textSecond

    implicitHeight: Theme.scaled(run.narrow ? 48 : 32)
    focusPolicy: Qt.NoFocus
    text: run.line.words
    leads: run.line.opens
    help: ended.truncated || lane.truncated ? run.line.tip + " — " + run.line.help : run.line.help
    lit: run.hovered
    ringed: run.line.ringed
    // The line of the list says it all.
    Accessible.ignored: true
    onPressed: run.line.pressed()
    onClicked: run.line.acted()

    Label {
        id: when
        x: 8
        y: run.narrow ? Theme.scaled(6) : Math.round((run.height - height) / 2)
        width: run.narrow ? Math.min(implicitWidth, run.room - turns.width - 8) : Theme.scaled(132)
        role: Label.Role.Small
        text: run.line.words
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: lane
        x: run.narrow ? 8 : when.x + when.width + Theme.space8
        y: run.narrow ? ended.y : when.y
        visible: text.length > 0
        width: visible ? Math.min(implicitWidth, Math.round(run.room * (run.narrow ? 0.5 : 0.32))) : 0
        role: Label.Role.Small
        text: run.line.beside
        color: run.second
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    RunTone {
        id: ended
        x: run.narrow ? (lane.visible ? lane.x + lane.width + Theme.space12 : 8) : lane.visible ? when.x + when.width + Theme.space8 + Math.round(run.room * 0.32) + Theme.space12 : when.x + when.width + Theme.space8
        y: run.narrow ? when.y + when.height + 4 : when.y
        width: (run.narrow ? run.room + 8 : turns.x - Theme.space8) - x
        tone: run.line.tone
        text: run.line.outcome
    }
    Label {
        id: turns
        x: 8 + run.room - width
        y: when.y
        role: Label.Role.Small
        text: run.line.trailing
        color: run.second
        Accessible.ignored: true
    }
}
