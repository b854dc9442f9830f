import QtQuick
import QtQuick.Templates as T

// One line of a menu: a tick when it is on, its words, its keys at the right.
T.MenuItem {
    id: item

    property string keys
    // Which of its letters is underlined, since it chooses the line; -1: none.
    property int mark: -1

    property bool lit: item.highlighted

    implicitWidth: Math.max(Theme.scaled(160), implicitContentWidth)
    implicitHeight: Theme.scaled(28)
    hoverEnabled: true
    focusPolicy: item.enabled ? Qt.StrongFocus : Qt.NoFocus
    activeFocusOnTab: item.enabled

    Accessible.role: Accessible.MenuItem
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
        mark: item.mark
        lit: item.lit
    }

    background: Rectangle {
        radius: Theme.radiusTile
        color: item.lit && item.enabled ? Theme.accentSoft : "transparent"
    }
}
