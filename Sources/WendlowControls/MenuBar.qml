pragma ComponentBehavior: Bound

import QtQuick

// The main menu across the top of a window. A menu is made when its title is opened and goes when it is
// closed, so that a window pays for the titles only and a menu always shows the newest state.
//
// F10 or Alt alone enters it, the arrows move, Escape leaves and gives the focus back.
FocusScope {
    id: bar

    // An object with a list `menus` of maps (id, title, items), each item a map with id, title, shortcut,
    // enabled, checkable, checked, separator; and with trigger(menu id, item id).
    required property var source

    property int openIndex: -1
    property BarMenu current: null
    property Item before: null

    implicitHeight: Theme.menuBarHeight

    Accessible.role: Accessible.MenuBar
    Accessible.name: qsTr("Main menu")

    function enter(): void {
        if (bar.openIndex >= 0 || titles.count === 0)
            return;
        bar.remember();
        titles.itemAt(0).forceActiveFocus(Qt.ShortcutFocusReason);
    }

    function remember(): void {
        if (!bar.before && !bar.activeFocus)
            bar.before = bar.Window.activeFocusItem;
    }

    function leave(): void {
        const back = bar.before;
        bar.before = null;
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
        bar.openIndex = index;
        bar.current = menuComponent.createObject(title, {
            place: index,
            entry: bar.source.menus[index]
        }) as BarMenu;
        bar.current.open();
        if (byKey)
            bar.current.currentIndex = 0;
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

                text: title.modelData.title
                strong: title.index === 0
                open: bar.openIndex === title.index
                onPressed: title.open ? bar.dismiss() : bar.open(title.index, false)
                onHoveredChanged: if (title.hovered && bar.openIndex >= 0 && !title.open)
                    bar.open(title.index, false)
                onAsked: bar.open(title.index, true)
                Keys.onLeftPressed: bar.step(title.index, -1)
                Keys.onRightPressed: bar.step(title.index, 1)
                Keys.onEscapePressed: bar.leave()
            }
        }
    }

    Component {
        id: menuComponent

        BarMenu {
            id: menu

            required property int place

            onChosen: id => bar.source.trigger(menu.entry.id, id)
            onStepped: by => bar.step(menu.place, by)
            onClosed: bar.settle(menu.place)
        }
    }
}
