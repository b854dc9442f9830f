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
            id: change

            // Which way it goes is known from the target alone: a binding on `active` may be still to be told.
            SequentialAnimation {
                PauseAnimation { duration: change.targetValue > 0 ? 0 : 600 }
                NumberAnimation { duration: change.targetValue > 0 ? 0 : Theme.fadeOut }
            }
        }
    }
}
