pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorScopes

// The sheets of the scopes: a folder that is mapped, or a move with what it would do.
Sheet {
    id: sheet

    required property ScopeSheetModel model

    title: sheet.model.title
    open: sheet.model.open
    onEscaped: sheet.model.cancel()

    Label {
        width: parent.width
        visible: text.length > 0
        text: sheet.model.text
        color: Theme.textSecond
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        bottomPadding: Theme.space16
    }
    // The first field that there is has the focus.
    ScopeField {
        width: parent.width
        visible: sheet.model.pathLabel.length > 0
        focus: visible
        label: sheet.model.pathLabel
        value: sheet.model.path
        failing: sheet.model.pathFails
        readOnly: sheet.model.busy
        onTyped: text => sheet.model.path = text
        onAccepted: sheet.model.commit()
    }
    Item {
        width: 1
        height: Theme.space16
        visible: sheet.model.pathLabel.length > 0 && sheet.model.mapsFolder
    }
    ScopeField {
        width: parent.width
        visible: sheet.model.mapsFolder
        focus: sheet.model.pathLabel.length === 0
        label: qsTr("Folder")
        value: sheet.model.folder
        failing: sheet.model.folderFails
        readOnly: sheet.model.busy
        onTyped: text => sheet.model.folder = text
        onAccepted: sheet.model.commit()
    }
    // One line, whichever field it is about, and none moves when it goes.
    Label {
        id: fault
        width: parent.width
        topPadding: 6
        role: Label.Role.Small
        text: sheet.model.fault
        color: sheet.model.pathFails || sheet.model.folderFails ? Theme.refusal : Theme.textSecond
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        height: Math.max(implicitHeight, Theme.lines[Label.Role.Small] + 6)
    }
    Label {
        width: parent.width
        visible: sheet.model.summary.length > 0
        topPadding: Theme.space12
        text: sheet.model.summary
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
    ScopeMovesTable {
        width: parent.width
        visible: sheet.model.summary.length > 0 && count > 0
        moves: sheet.model.moves
    }
    Item {
        width: 1
        height: Theme.space16
        visible: refusal.visible
    }
    Strip {
        id: refusal
        width: parent.width
        height: implicitHeight
        visible: sheet.model.refusal.length > 0
        tone: Strip.Tone.Refusal
        text: sheet.model.refusal
    }

    buttons: [
        Button {
            text: qsTr("Cancel")
            onClicked: sheet.model.cancel()
        },
        Button {
            kind: Button.Kind.Primary
            text: sheet.model.commitLabel
            hint: sheet.model.fault
            busy: sheet.model.busy
            enabled: sheet.model.canCommit && !sheet.model.busy
            onClicked: sheet.model.commit()
        }
    ]
}
