import QtQuick
import QtQuick.Templates as T

// One place of a sidebar: its icon on a tile, its title; the open one is marked.
T.AbstractButton {
    id: control

    required property string iconName
    required property bool here

    property bool lit: control.hovered
    property bool sunk: control.down
    property bool ringed: control.visualFocus

    implicitHeight: 36
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.PageTab
    Accessible.name: control.text
    Accessible.selectable: true
    Accessible.selected: control.here
    Accessible.onPressAction: control.click()
    Keys.onReturnPressed: control.click()
    Keys.onEnterPressed: control.click()

    contentItem: Item {
        Rectangle {
            id: tile
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            width: 22
            height: 22
            radius: Theme.radiusTile
            gradient: Gradient {
                GradientStop { position: 0; color: control.here ? Theme.openTileTop : Theme.tileTop }
                GradientStop { position: 1; color: control.here ? Theme.openTileBottom : Theme.tileBottom }
            }

            Icon {
                anchors.centerIn: parent
                size: 14
                name: control.iconName
                color: control.here ? Theme.openTileGlyph : Theme.tileGlyph
            }
        }
        Label {
            anchors.left: tile.right
            anchors.leftMargin: 10
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            role: control.here ? Label.Role.Strong : Label.Role.Body
            text: control.text
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    background: HoverFill {
        radius: Theme.radiusButton
        lit: control.here || control.lit || control.sunk
        shade: control.here ? Theme.here : control.sunk ? Theme.pressed : Theme.hover

        FocusRing {
            shown: control.ringed
            inside: true
        }
    }
}
