import QtQuick

// A fill that is there at once while something is lit, and fades when it no longer is.
Rectangle {
    id: fill

    required property bool lit
    property color shade: Theme.hover

    property real strength: fill.lit ? 1 : 0

    color: Qt.alpha(fill.shade, fill.shade.a * fill.strength)

    Behavior on strength {
        id: change

        // Which way it goes is known from the target alone: a binding on `lit` may be still to be told.
        NumberAnimation {
            duration: change.targetValue > 0 ? 0 : Theme.fadeOut
            easing.type: Easing.OutQuad
        }
    }
}
