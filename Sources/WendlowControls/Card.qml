import QtQuick

// The sheet that rows and blocks stand on.
Rectangle {
    color: Theme.surface
    border.width: Theme.strokeHairline
    border.color: Theme.hairline
    radius: Theme.radiusCard
}
