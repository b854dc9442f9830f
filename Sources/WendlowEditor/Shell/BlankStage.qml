import QtQuick
import WendlowControls

// A face that has nothing of its own to show says so in one sentence.
Item {
    id: blank

    required property string title
    required property string text
    required property bool failed

    EmptyState {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.space32, 440)
        iconName: blank.failed ? "warn" : "clock"
        failed: blank.failed
        text: blank.text
    }
}
