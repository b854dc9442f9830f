import QtQuick
import QtQuick.Templates as T

// One title of the menu bar.
// A menu item by its template: Qt 6.4 tells a screen reader the template's role and no other.
T.MenuItem {
    id: control

    property bool strong: false
    property bool open: false
    // Which of its letters is underlined; -1: none.
    property int mark: -1

    // Asked for by key.
    signal asked

    implicitWidth: implicitContentWidth + 16
    implicitHeight: Theme.menuBarHeight - 1
    horizontalPadding: 8
    hoverEnabled: true
    focusPolicy: Qt.NoFocus

    Accessible.name: control.text
    Accessible.onPressAction: if (control.enabled)
        control.asked()
    Keys.onDownPressed: control.asked()
    Keys.onReturnPressed: control.asked()
    Keys.onEnterPressed: control.asked()
    Keys.onSpacePressed: control.asked()

    contentItem: Marked {
        role: control.strong ? Label.Role.SmallBold : Label.Role.Small
        plain: control.text
        mark: control.mark
        verticalAlignment: Text.AlignVCenter
    }

    background: Item {
        HoverFill {
            anchors.fill: parent
            anchors.topMargin: 3
            anchors.bottomMargin: 3
            radius: Theme.radiusTile
            lit: control.open || control.hovered
            shade: control.open ? Theme.here : Theme.hover

            FocusRing {
                shown: control.visualFocus
                around: Theme.radiusTile
                inside: true
            }
        }
    }
}
