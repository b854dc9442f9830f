pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// The menu below one title of the menu bar, made from its entry of the main menu.
Menu {
    id: menu

    // A map with a list `items`, as MenuBar tells.
    required property var entry
    // Whether the letters that choose a line are marked.
    required property bool marked

    // The first line that can be chosen; -1: none can. Such a menu takes no keys: they stay with its title.
    readonly property int first: menu.entry.items.findIndex(item => item.separator !== true && item.enabled !== false)

    // The line was chosen; or the person asks for the neighbouring menu.
    signal chosen(string id)
    signal stepped(int by)

    title: menu.entry.title
    focus: menu.first >= 0
    y: parent?.height ?? 0
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    // Of the lines that can be chosen, the one whose marked letter this is.
    function lineOf(letter: string): var {
        return menu.entry.items.find(item => item.separator !== true && item.enabled !== false && item.mnemonic >= 0 && item.title.charAt(item.mnemonic).toLowerCase() === letter.toLowerCase());
    }

    Component.onCompleted: {
        for (const item of menu.entry.items)
            menu.addItem(item.separator === true ? rule.createObject(menu.contentItem) : line.createObject(menu.contentItem, {
                told: item
            }));
        // A view that has not laid itself out has no height, and lays out nothing in that.
        (menu.contentItem as ListView).forceLayout();
    }

    Component {
        id: rule

        MenuRule {}
    }
    Component {
        id: line

        MenuItem {
            id: item

            required property var told

            text: item.told.title
            keys: item.told.shortcut ?? ""
            mark: menu.marked ? item.told.mnemonic ?? -1 : -1
            enabled: item.told.enabled !== false
            checkable: item.told.checkable === true
            checked: item.told.checked === true
            onTriggered: menu.chosen(item.told.id)
            Keys.onLeftPressed: menu.stepped(-1)
            Keys.onRightPressed: menu.stepped(1)
            Keys.onPressed: event => {
                const found = event.text.length === 1 ? menu.lineOf(event.text) : undefined;
                event.accepted = found !== undefined;
                if (event.accepted) {
                    menu.chosen(found.id);
                    menu.close();
                }
            }
        }
    }
}
