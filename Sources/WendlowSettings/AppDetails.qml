pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// What an open row tells: what has happened and what to do about it, what that changed, what the tool's files
// hold, and then what the tool itself keeps.
Column {
    id: details

    required property string name
    required property var strips
    required property var changes
    required property string changesTitle
    required property var notes
    required property AppInventory inventory

    signal copied(path: string)
    signal deed(action: int, path: string)

    topPadding: 4
    bottomPadding: Theme.space16

    Repeater {
        model: details.strips

        delegate: Item {
            id: place

            required property var modelData

            width: details.width
            height: strip.height + Theme.space8

            RowStripFace {
                id: strip
                width: place.width
                told: place.modelData
                onDeed: action => details.deed(action, place.modelData.path)
            }
        }
    }
    Button {
        id: fold

        property bool open: false

        visible: details.changesTitle.length > 0
        x: -8
        kind: Button.Kind.Quiet
        small: true
        iconName: fold.open ? "down" : "right"
        text: details.changesTitle
        hint: details.name
        onClicked: fold.open = !fold.open

        Accessible.checkable: true
        Accessible.checked: fold.open
    }
    NoteList {
        visible: fold.visible && fold.open
        width: details.width
        name: details.changesTitle
        notes: fold.open ? details.changes : []
        bottomPadding: Theme.space8
        onCopied: path => details.copied(path)
    }
    NoteList {
        visible: details.notes.length > 0
        width: details.width
        name: qsTr("What the files of %1 hold").arg(details.name)
        notes: details.notes
        onCopied: path => details.copied(path)
    }
    Item {
        visible: details.notes.length > 0
        width: 1
        height: 14
    }
    Item {
        visible: !details.inventory.known
        width: details.width
        height: Theme.scaled(25)

        Accessible.role: Accessible.StaticText
        Accessible.name: reading.text
        Accessible.ignored: !reading.visible

        Spinner {
            id: turning
            visible: details.inventory.slow
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.scaled(14)
        }
        Label {
            id: reading
            visible: details.inventory.slow
            x: turning.size + 8
            width: parent.width - x
            anchors.verticalCenter: parent.verticalCenter
            role: Label.Role.Small
            text: qsTr("Reading the projects and memory files of %1…").arg(details.name)
            color: Theme.textSecond
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    Only {
        wanted: details.inventory.known

        InventoryTable {
            width: details.width
            title: qsTr("Projects")
            spokenTitle: qsTr("Projects of %1").arg(details.name)
            lines: details.inventory.projects
            note: details.inventory.projectsNote
            source: details.inventory.source
            shownSource: details.inventory.shownSource
            reading: details.inventory.slow
            onCopied: path => details.copied(path)
        }
    }
    Item {
        visible: details.inventory.known
        width: 1
        height: 14
    }
    Only {
        wanted: details.inventory.known

        InventoryTable {
            width: details.width
            title: qsTr("Memory files")
            spokenTitle: qsTr("Memory files of %1").arg(details.name)
            lines: details.inventory.memoryFiles
            note: details.inventory.memoryNote
            onCopied: path => details.copied(path)
        }
    }
}
