import QtQuick
import WendlowControls
import WendlowEditorMods

// A run in a log: when, of which lane where the log is of several, how it ended, how many turns it took. With a
// report it leads there.
DisclosureRow {
    id: run

    required property string lane
    required property string outcome
    required property int tone
    required property string turns
    // All of it, where it may be cut.
    required property string tip

    // Too little room for one line.
    readonly property bool narrow: run.width < Theme.scaled(run.lane.length > 0 ? 520 : 440)
    readonly property int room: run.width - 36
    readonly property color second: run.tinted ? Theme.textSecondOnTint : Theme.textSecond

    implicitHeight: Theme.scaled(run.narrow ? 48 : 32)
    focusPolicy: Qt.NoFocus
    tipped: ended.truncated || place.truncated ? run.tip + " — " + run.help : run.help
    // The line of the list says it all.
    Accessible.ignored: true

    // What a label would be wide that is not cut: asked of the label itself, it depends on the answer.
    TextMetrics {
        id: whenWhole
        font: when.font
        text: run.text
    }
    TextMetrics {
        id: placeWhole
        font: place.font
        text: run.lane
    }
    Label {
        id: when
        x: 8
        y: run.narrow ? Theme.scaled(6) : Math.round((run.height - height) / 2)
        width: run.narrow ? Math.min(Math.ceil(whenWhole.advanceWidth) + 1, run.room - count.width - 8) : Theme.scaled(132)
        role: Label.Role.Small
        text: run.text
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: place
        x: run.narrow ? 8 : when.x + when.width + Theme.space8
        y: run.narrow ? ended.y : when.y
        visible: text.length > 0
        width: visible ? Math.min(Math.ceil(placeWhole.advanceWidth) + 1, Math.round(run.room * (run.narrow ? 0.5 : 0.32))) : 0
        role: Label.Role.Small
        text: run.lane
        color: run.second
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    RunTone {
        id: ended
        x: run.narrow ? (place.visible ? place.x + place.width + Theme.space12 : 8) : place.visible ? when.x + when.width + Theme.space8 + Math.round(run.room * 0.32) + Theme.space12 : when.x + when.width + Theme.space8
        y: run.narrow ? when.y + when.height + 4 : when.y
        width: (run.narrow ? run.room + 8 : count.x - Theme.space8) - x
        tone: run.tone
        text: run.outcome
    }
    Label {
        id: count
        x: 8 + run.room - width
        y: when.y
        role: Label.Role.Small
        text: run.turns
        color: run.second
        Accessible.ignored: true
    }
}
