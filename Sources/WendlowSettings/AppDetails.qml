pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// What an open row tells: the notes of its files and its last verb, then what the tool itself keeps.
Column {
    id: details

    required property string name
    required property var notes
    required property AppInventory inventory

    signal copied(path: string)

    topPadding: 4
    bottomPadding: Theme.space16

    Repeater {
        model: details.notes

        delegate: NoteLine {
            required property var modelData

            width: details.width
            sentence: modelData.text
            subject: modelData.subject
            shownSubject: modelData.shownSubject
            onCopied: details.copied(modelData.subject)
        }
    }
    Item {
        visible: details.notes.length > 0
        width: 1
        height: 14
    }
    Item {
        visible: !details.inventory.known
        width: details.width
        height: 25

        Accessible.role: Accessible.StaticText
        Accessible.name: reading.text
        Accessible.ignored: !reading.visible

        Spinner {
            visible: details.inventory.slow
            anchors.verticalCenter: parent.verticalCenter
            size: 14
        }
        Label {
            id: reading
            visible: details.inventory.slow
            x: 22
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
