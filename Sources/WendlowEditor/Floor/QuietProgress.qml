import QtQuick
import WendlowControls

// A spinner for what takes longer than a person notices; what is quick shows none.
Item {
    id: progress

    required property bool running
    property bool late: false

    implicitWidth: Theme.iconSize
    implicitHeight: Theme.iconSize

    onRunningChanged: progress.late = false

    Timer {
        interval: 250
        running: progress.running
        onTriggered: progress.late = true
    }
    Spinner { visible: progress.running && progress.late }
}
