pragma ComponentBehavior: Bound

import QtQuick

// Sentences about files, one below the other.
Column {
    id: list

    required property string name
    required property var notes

    signal copied(path: string)

    Accessible.role: Accessible.List
    Accessible.name: list.name

    Repeater {
        model: list.notes

        delegate: NoteLine {
            required property var modelData

            width: list.width
            sentence: modelData.text
            subject: modelData.subject
            shownSubject: modelData.shownSubject
            place: modelData.place
            onCopied: list.copied(modelData.subject)
        }
    }
}
