import QtQuick
import QtQuick.Templates as T
import WendlowControls

// One place of a sidebar: its icon on a tile, its title; the open one is marked.
// A tab by its template: Qt 6.4 tells a screen reader the template's role and no other.
T.TabButton {
    id: control

    required property string iconName
    required property bool here
    // Its tile alone, its title in a tooltip.
    property bool compact: false

    property bool lit: control.hovered
    property bool sunk: control.down
    property bool ringed: control.visualFocus

    implicitHeight: Theme.scaled(36)
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    checkable: false
    autoExclusive: false

    Accessible.name: control.text
    Accessible.selectable: true
    Accessible.selected: control.here
    Accessible.onPressAction: if (control.enabled)
        control.clicked()
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    Item {
        anchors.fill: parent

        GradientTile {
            id: tile
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.scaled(22)
            height: Theme.scaled(22)
            radius: Theme.radiusTile
            from: control.here ? Theme.openTileTop : Theme.tileTop
            to: control.here ? Theme.openTileBottom : Theme.tileBottom

            Icon {
                anchors.centerIn: parent
                size: Theme.scaled(14)
                name: control.iconName
                color: control.here ? Theme.openTileGlyph : Theme.tileGlyph
            }
        }
        Label {
            id: words
            visible: !control.compact
            x: tile.x + tile.width + 10
            width: parent.width - x - 8
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

    Hint {
        text: control.text
        wanted: (control.compact || words.truncated) && (control.hovered || control.visualFocus)
    }
}
