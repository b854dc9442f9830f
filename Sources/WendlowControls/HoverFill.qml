import QtQuick

// A fill that is there at once while something is lit, and fades when it no longer is.
Rectangle {
    id: fill

    required property bool lit
    property color shade: Theme.hover

    color: fill.lit ? fill.shade : Qt.alpha(fill.shade, 0)

    Behavior on color {
        enabled: !fill.lit && Theme.fadeOut > 0
        ColorAnimation { duration: Theme.fadeOut; easing.type: Easing.OutQuad }
    }
}
