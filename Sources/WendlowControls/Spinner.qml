import QtQuick
import WendlowControls

// A ring with a third in accent, one turn a second; it stands still with reduced motion, and the words
// beside it carry the state.
Item {
    id: spinner

    property int size: Theme.iconSize

    implicitWidth: spinner.size
    implicitHeight: spinner.size

    Accessible.ignored: true

    Icon {
        name: "spinner-ring"
        size: spinner.size
        color: Theme.spinnerRing
    }
    Icon {
        name: "spinner-arc"
        size: spinner.size
        color: Theme.accent
        antialiasing: true

        RotationAnimation on rotation {
            from: 0
            to: 360
            duration: Theme.spinnerTurn
            loops: Animation.Infinite
            running: spinner.visible && !Theme.reduceMotion
        }
    }
}
