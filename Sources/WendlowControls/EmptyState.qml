pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// What stands in a stage that has nothing to show yet or at all: a sign or the spinner, and one sentence.
Column {
    id: empty

    required property string text
    property string iconName
    // What can be done next, if that is not plain.
    property string next
    property bool busy: false
    property bool failed: false

    spacing: 8

    Only {
        wanted: empty.busy

        Spinner {
            size: Theme.scaled(20)
            anchors.horizontalCenter: empty.horizontalCenter
        }
    }
    Icon {
        visible: !empty.busy && empty.iconName.length > 0
        anchors.horizontalCenter: parent.horizontalCenter
        size: Theme.scaled(20)
        name: empty.iconName
        color: empty.failed ? Theme.warning : Theme.textSecond
    }
    Label {
        width: empty.width
        role: Label.Role.Small
        text: empty.text
        color: empty.failed ? Theme.text : Theme.textSecond
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
    Label {
        width: empty.width
        visible: empty.next.length > 0
        text: empty.next
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
}
