import QtQuick
import WendlowControls
import WendlowEditor
import WendlowEditorFloor

// A face that has nothing of its own to show says so in one sentence.
FacePage {
    id: blank

    required property BlankFace face

    EmptyState {
        id: words
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.space32, Theme.scaled(440))
        iconName: blank.face.gaveUp ? "warn" : "clock"
        failed: blank.face.gaveUp
        text: blank.face.words
    }
    Button {
        anchors.top: words.bottom
        anchors.topMargin: Theme.space16
        anchors.horizontalCenter: parent.horizontalCenter
        visible: blank.face.gaveUp
        small: true
        working: blank.trying
        text: qsTr("Try again")
        onClicked: if (!blank.trying)
            blank.triedAgain()
    }
}
