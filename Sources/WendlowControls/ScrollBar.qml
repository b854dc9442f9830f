import QtQuick
import QtQuick.Templates as T

// A thin bar over the content, there while something moves and for a moment after.
T.ScrollBar {
    id: bar

    implicitWidth: 11
    implicitHeight: 11
    padding: 3
    minimumSize: 0.06
    visible: bar.size < 1
    hoverEnabled: true

    contentItem: Rectangle {
        implicitWidth: 5
        implicitHeight: 5
        radius: 2.5
        color: bar.pressed ? Theme.control : Theme.edge
        opacity: bar.active ? 1 : 0

        Behavior on opacity {
            // Only what is all there goes slowly. By `active` it could not be told: a binding on it may be still
            // to hear that it has changed.
            enabled: bar.contentItem.opacity === 1

            SequentialAnimation {
                PauseAnimation { duration: 600 }
                NumberAnimation { duration: Theme.fadeOut }
            }
        }
    }
}
