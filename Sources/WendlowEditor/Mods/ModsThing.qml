pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorMods

// What is told of a mod, a file or a behavior of it, or of what was refused: a name, what stands beside it, and
// a second line that says what it is for.
Item {
    id: thing

    required property ModsLine line

    readonly property bool head: thing.line.kind === ModsRows.Head
    readonly property bool file: thing.line.kind === ModsRows.File
    readonly property bool refused: thing.line.kind === ModsRows.Rejection
    readonly property bool signed: thing.file || thing.refused
    readonly property int begin: thing.signed ? 24 : 0
    readonly property int end: thing.width - (state.visible ? state.width + Theme.space16 : 0)
    readonly property int pad: thing.head ? 0 : 4

    implicitHeight: thing.pad + name.height + (second.visible ? second.height + 2 : 0) + (thing.head ? 0 : 4)

    FocusRing {
        anchors.leftMargin: -8
        anchors.rightMargin: -8
        anchors.topMargin: thing.head ? -6 : 0
        anchors.bottomMargin: thing.head ? -4 : 0
        shown: thing.line.ringed
        inside: true
    }
    Icon {
        visible: thing.signed
        y: thing.pad + Math.round((name.height - height) / 2)
        name: thing.refused ? "warn" : "doc"
        color: thing.refused ? Theme.warning : Theme.textSecond
    }
    Label {
        id: name
        x: thing.begin
        y: thing.pad
        width: Math.min(implicitWidth, thing.end - x)
        role: thing.head ? Label.Role.Heading : thing.file ? Label.Role.Body : Label.Role.Strong
        text: thing.line.words
        elide: thing.file ? Text.ElideMiddle : Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: place
        x: name.x + name.width + Theme.space8
        anchors.verticalCenter: name.verticalCenter
        width: Math.max(0, Math.min(implicitWidth, thing.end - x))
        role: Label.Role.Small
        text: thing.line.beside
        color: Theme.textSecond
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: state
        x: thing.width - width
        anchors.verticalCenter: name.verticalCenter
        visible: text.length > 0
        width: Math.min(implicitWidth, Math.round(thing.width / 2))
        role: Label.Role.Small
        text: thing.line.trailing
        color: Theme.textSecond
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    Label {
        id: second
        x: thing.begin
        y: name.y + name.height + 2
        visible: text.length > 0
        width: thing.width - x
        role: Label.Role.Small
        line: Theme.hintLine
        text: thing.line.under
        color: Theme.textSecond
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Hint {
        leading: true
        text: thing.line.tip
        wanted: (thing.line.hovered || thing.line.ringed) && (name.truncated || place.truncated || state.truncated || second.truncated)
    }
}
