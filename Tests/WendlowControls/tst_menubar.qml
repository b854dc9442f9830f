import QtQuick
import QtTest
import WendlowControls

Item {
    id: scene

    width: 600
    height: 400

    QtObject {
        id: mainMenu

        property var chosen: []
        property var menus: [
            { id: "app", title: "Wendlow", items: [{ id: "about", title: "About" }, { separator: true }, { id: "off", title: "Off", enabled: false }, { id: "quit", title: "Quit", shortcut: "Ctrl+Q" }] },
            { id: "edit", title: "Edit", items: [{ id: "copy", title: "Copy", checkable: true, checked: true }] }
        ]

        function trigger(menu: string, item: string): void {
            chosen = [...chosen, menu + "/" + item];
        }
    }

    WindowFrame {
        id: frame

        anchors.fill: parent
        menu: mainMenu

        Button { id: work; text: "Work"; focus: true }
    }

    TestCase {
        id: test

        name: "MenuBar"
        when: windowShown

        readonly property MenuBar bar: Array.from(frame.children).find(child => child instanceof MenuBar)

        function init(): void {
            mainMenu.chosen = [];
            work.forceActiveFocus();
        }
        function cleanup(): void {
            bar.close();
        }
        function title(index: int): Item {
            return Array.from(bar.children).find(child => child instanceof Row).children[index];
        }

        function test_keys_data(): var {
            return [
                { tag: "lines that cannot be chosen are skipped", keys: [Qt.Key_F10, Qt.Key_Down, Qt.Key_Down, Qt.Key_Return], chosen: ["app/quit"] },
                { tag: "from menu to menu", keys: [Qt.Key_F10, Qt.Key_Down, Qt.Key_Right, Qt.Key_Return], chosen: ["edit/copy"] },
                { tag: "round the end", keys: [Qt.Key_F10, Qt.Key_Left, Qt.Key_Down, Qt.Key_Return], chosen: ["edit/copy"] },
                { tag: "alt alone", keys: [Qt.Key_Alt, Qt.Key_Down, Qt.Key_Return], chosen: ["app/about"] },
                { tag: "escape from a menu", keys: [Qt.Key_F10, Qt.Key_Down, Qt.Key_Escape], chosen: [] }
            ];
        }
        function test_keys(data: var): void {
            for (const key of data.keys) {
                keyClick(key);
                wait(1);
            }
            tryCompare(bar, "openIndex", -1);
            compare(mainMenu.chosen, data.chosen);
            tryVerify(() => work.activeFocus, 1000, "the focus is back where it was");
        }

        function test_altWithAnotherKeyIsNoVisit(): void {
            keyPress(Qt.Key_Alt);
            keyClick(Qt.Key_X, Qt.AltModifier);
            keyRelease(Qt.Key_Alt);
            verify(work.activeFocus);
        }

        function test_pointer(): void {
            mouseClick(title(0));
            compare(bar.openIndex, 0);
            mouseClick(title(0));
            tryCompare(bar, "openIndex", -1);
            mouseClick(title(0));
            mouseMove(title(1), 5, 5);
            tryCompare(bar, "openIndex", 1);
            const line = bar.current.itemAt(0);
            tryVerify(() => line.width > 0 && bar.current.opened);
            compare(bench.spoken(line).name, "Copy");
            verify(bench.spoken(line).checked);
            mouseClick(line);
            tryCompare(bar, "openIndex", -1);
            compare(mainMenu.chosen, ["edit/copy"]);
            verify(work.activeFocus);
        }
    }
}
