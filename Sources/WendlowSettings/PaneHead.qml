pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// What a pane begins with: its title, a second text below it, and why it could not be read, if it could not.
Column {
    id: head

    required property string title
    property string body
    property string error
    property bool retrying: false

    signal retried

    Label {
        width: head.width
        role: Label.Role.Title
        text: head.title
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    Item {
        visible: head.body.length > 0
        width: 1
        height: 6
    }
    Label {
        visible: head.body.length > 0
        width: Math.min(head.width, Theme.scaled(560))
        text: head.body
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
    Item {
        width: 1
        height: Theme.space24
    }
    Once {
        wanted: head.error.length > 0

        Strip {
            visible: head.error.length > 0
            width: head.width
            tone: Strip.Tone.Refusal
            text: head.error
            action: qsTr("Try again")
            acting: head.retrying
            onActed: head.retried()
        }
    }
    Item {
        visible: head.error.length > 0
        width: 1
        height: Theme.space16
    }
}
