import QtQuick
import WendlowControls

// A face that has nothing of its own to show says so in one sentence.
Item {
    id: blank

    required property string title
    required property string text
    required property bool failed

    // What failed is to be tried once more.
    signal triedAgain

    EmptyState {
        id: words
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.space32, 440)
        iconName: blank.failed ? "warn" : "clock"
        failed: blank.failed
        text: blank.text
    }
    Button {
        anchors.top: words.bottom
        anchors.topMargin: Theme.space16
        anchors.horizontalCenter: parent.horizontalCenter
        visible: blank.failed
        small: true
        text: qsTr("Try again")
        onClicked: blank.triedAgain()
    }
}
