import QtQuick
import QtQuick.Templates as T

// One line of a menu: a tick when it is on, its words, its keys at the right; or a line between groups.
T.MenuItem {
    id: item

    property string keys
    property bool separator: false

    property bool lit: item.highlighted

    implicitWidth: Math.max(160, implicitContentWidth)
    implicitHeight: item.separator ? 9 : 28
    hoverEnabled: true
    focusPolicy: item.enabled && !item.separator ? Qt.StrongFocus : Qt.NoFocus
    activeFocusOnTab: item.enabled && !item.separator

    Accessible.role: item.separator ? Accessible.Separator : Accessible.MenuItem
    Accessible.name: item.text
    Accessible.description: item.keys
    Accessible.checkable: item.checkable
    Accessible.checked: item.checked
    Accessible.onPressAction: if (item.enabled)
        item.clicked()

    contentItem: MenuItemFace {
        text: item.text
        keys: item.keys
        ticked: item.checked
        separator: item.separator
        lit: item.lit
    }

    background: Rectangle {
        radius: Theme.radiusTile
        color: item.lit && item.enabled && !item.separator ? Theme.accentSoft : "transparent"
    }
}
