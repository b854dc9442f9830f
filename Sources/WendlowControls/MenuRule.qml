import QtQuick
import QtQuick.Templates as T

// The line between two groups of a menu.
// A separator by its template: Qt 6.4 tells a screen reader the template's role and no other.
T.MenuSeparator {
    implicitWidth: Theme.scaled(160)
    implicitHeight: 9

    Accessible.role: Accessible.Separator

    contentItem: Item {
        Hairline {
            x: 8
            width: parent.width - 16
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
