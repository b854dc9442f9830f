pragma ComponentBehavior: Bound

import QtQuick

// The main menu across the top of a window. A menu is made when its title is opened and goes when it is
// closed, so that a window pays for the titles only and a menu always shows the newest state.
//
// F10 or Alt alone enters it, Alt with a title's letter opens that, the arrows move, a line's letter chooses it,
// Escape leaves and gives the focus back. A menu of which no line can be chosen leaves the keys with its title.
FocusScope {
    id: bar

    // An object with a list `menus` of maps (id, title, mnemonic, items), each item a map with id, title, mnemonic,
    // shortcut, enabled, checkable, checked, separator; and with trigger(menu id, item id). A mnemonic is the place
    // of a letter in its title.
    required property var source
    // Alt is held, which shows the letters.
    property bool altHeld: false

    property int openIndex: -1
    property BarMenu current: null
    property bool byKey: false
    property Item before: null

    implicitHeight: Theme.menuBarHeight

    Accessible.role: Accessible.MenuBar
    Accessible.name: qsTr("Main menu")

    function enter(): void {
        if (bar.openIndex >= 0 || titles.count === 0)
            return;
        bar.remember();
        bar.byKey = true;
        titles.itemAt(0).forceActiveFocus(Qt.ShortcutFocusReason);
    }

    function remember(): void {
        if (!bar.before && !bar.activeFocus)
            bar.before = bar.Window.activeFocusItem;
    }

    function leave(): void {
        const back = bar.before;
        bar.before = null;
        bar.byKey = false;
        back?.forceActiveFocus(Qt.OtherFocusReason);
    }

    function step(from: int, by: int): void {
        const next = (from + by + titles.count) % titles.count;
        const wasOpen = bar.openIndex >= 0;
        if (bar.activeFocus || wasOpen)
            titles.itemAt(next).forceActiveFocus(Qt.ShortcutFocusReason);
        if (wasOpen)
            bar.open(next, true);
    }

    function open(index: int, byKey: bool): void {
        bar.close();
        bar.remember();
        const title = titles.itemAt(index);
        bar.byKey = byKey;
        bar.openIndex = index;
        bar.current = menuComponent.createObject(title, {
            place: index,
            entry: bar.source.menus[index]
        }) as BarMenu;
        if (bar.current.first < 0)
            title.forceActiveFocus(Qt.ShortcutFocusReason);
        bar.current.open();
        if (byKey)
            bar.current.currentIndex = bar.current.first;
    }

    function close(): void {
        const menu = bar.current;
        bar.current = null;
        bar.openIndex = -1;
        menu?.close();
        menu?.destroy();
    }

    function dismiss(): void {
        bar.close();
        bar.leave();
    }

    // A menu has closed by itself: by Escape, by a choice, by a press elsewhere.
    function settle(place: int): void {
        if (bar.openIndex === place)
            bar.dismiss();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.sidebar
    }
    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
    }

    Row {
        x: 8

        Repeater {
            id: titles
            model: bar.source.menus

            delegate: MenuTitle {
                id: title

                required property var modelData
                required property int index

                readonly property int mnemonic: title.modelData.mnemonic ?? -1

                text: title.modelData.title
                mark: bar.altHeld || bar.byKey ? title.mnemonic : -1
                strong: title.index === 0
                open: bar.openIndex === title.index
                onPressed: title.open ? bar.dismiss() : bar.open(title.index, false)
                onHoveredChanged: if (title.hovered && bar.openIndex >= 0 && !title.open)
                    bar.open(title.index, false)
                onAsked: if (!title.open)
                    bar.open(title.index, true)
                Keys.onLeftPressed: bar.step(title.index, -1)
                Keys.onRightPressed: bar.step(title.index, 1)
                Keys.onEscapePressed: title.open ? bar.dismiss() : bar.leave()

                Shortcut {
                    enabled: title.mnemonic >= 0
                    sequence: "Alt+" + title.text.charAt(title.mnemonic)
                    onActivated: bar.open(title.index, true)
                }
            }
        }
    }

    Component {
        id: menuComponent

        BarMenu {
            id: menu

            required property int place

            marked: bar.byKey
            onChosen: id => bar.source.trigger(menu.entry.id, id)
            onStepped: by => bar.step(menu.place, by)
            onClosed: bar.settle(menu.place)
        }
    }
}
