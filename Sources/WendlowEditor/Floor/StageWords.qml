import QtQuick
import WendlowControls

// What stands in place of rows. That something is being read is said only once it takes a while.
EmptyState {
    id: stage

    property bool late: false

    visible: stage.text.length > 0 && (!stage.busy || stage.late)
    iconName: stage.busy ? "" : "doc"
    onBusyChanged: stage.late = false

    Timer {
        interval: 150
        running: stage.busy
        onTriggered: stage.late = true
    }
}
