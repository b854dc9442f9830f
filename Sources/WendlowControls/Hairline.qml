import QtQuick

// A line of one pixel, as wide as asked for.
Rectangle {
    implicitHeight: Theme.strokeHairline
    implicitWidth: Theme.strokeHairline
    color: Theme.hairline
}
