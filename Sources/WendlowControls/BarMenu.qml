pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// The menu below one title of the menu bar, made from its entry of the main menu.
Menu {
    id: menu

    // A map with a list `items`, as MenuBar tells.
    required property var entry

    // The line was chosen; or the person asks for the neighbouring menu.
    signal chosen(string id)
    signal stepped(int by)

    y: parent?.height ?? 0
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    Repeater {
        model: menu.entry.items

        delegate: MenuItem {
            id: line

            required property var modelData

            text: line.modelData.title ?? ""
            keys: line.modelData.shortcut ?? ""
            separator: line.modelData.separator === true
            enabled: line.modelData.enabled !== false && !line.separator
            checkable: line.modelData.checkable === true
            checked: line.modelData.checked === true
            onTriggered: menu.chosen(line.modelData.id)
            Keys.onLeftPressed: menu.stepped(-1)
            Keys.onRightPressed: menu.stepped(1)
        }
    }
}
