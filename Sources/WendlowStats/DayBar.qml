import QtQuick
import WendlowControls
import WendlowStats

// Previous and next day, the way back to today, and the word that asks once more.
FocusScope {
    id: bar

    required property StatsRoot root
    required property int margin

    implicitHeight: Theme.scaled(56)

    // The one that is always there and always enabled.
    function take(): void {
        previous.forceActiveFocus(LastInput.reason);
    }

    IconButton {
        id: previous
        // Its drawing, not its outline, stands at the margin.
        x: bar.margin - 6
        anchors.verticalCenter: parent.verticalCenter
        iconName: "left"
        text: qsTr("Previous day")
        focus: true
        onClicked: bar.root.goToPreviousDay()
    }
    IconButton {
        id: next
        x: previous.x + 32
        anchors.verticalCenter: parent.verticalCenter
        iconName: "right"
        text: qsTr("Next day")
        enabled: !bar.root.onToday
        onClicked: bar.root.goToNextDay()
    }
    Label {
        x: bar.margin + 66
        anchors.verticalCenter: parent.verticalCenter
        visible: bar.root.onToday
        role: Label.Role.Eyebrow
        text: qsTr("TODAY")
    }
    Button {
        id: back
        x: bar.margin + 63
        anchors.verticalCenter: parent.verticalCenter
        visible: !bar.root.onToday
        kind: Button.Kind.Quiet
        small: true
        text: qsTr("Back to today")
        hint: qsTr("Jump to today")
        onClicked: bar.root.goToToday()

        Hint {
            text: back.hint
            wanted: back.hovered || back.visualFocus
        }
    }
    Button {
        id: again

        readonly property bool loading: bar.root.loading
        property bool late: false

        anchors.right: parent.right
        anchors.rightMargin: bar.margin - 8
        anchors.verticalCenter: parent.verticalCenter
        kind: Button.Kind.Quiet
        small: true
        text: qsTr("Refresh")
        // A load can be begun again while it is under way; what is quick shows no sign.
        working: again.loading && again.late
        onLoadingChanged: again.late = false
        onClicked: bar.root.refresh()

        Timer {
            interval: 250
            running: again.loading
            onTriggered: again.late = true
        }
    }
}
