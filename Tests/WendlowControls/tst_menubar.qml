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
            { id: "app", title: "Wendlow", mnemonic: 0, items: [{ id: "about", title: "About", mnemonic: 0 }, { separator: true }, { id: "off", title: "Off", enabled: false }, { id: "quit", title: "Quit", shortcut: "Ctrl+Q" }] },
            { id: "off", title: "Off", mnemonic: 0, items: [{ id: "undo", title: "Undo", mnemonic: 0, enabled: false }] },
            { id: "edit", title: "Edit", mnemonic: 0, items: [{ id: "copy", title: "Copy", mnemonic: 1, checkable: true, checked: true }] }
        ]

        function trigger(menu: string, item: string): void {
            chosen = [...chosen, menu + "/" + item];
        }
    }

    WindowFrame {
        id: frame

        anchors.fill: parent
        menu: mainMenu

        Button { id: work; text: "Work"; focus: true; Keys.onLeftPressed: {} }
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
            compare(bench.warnings().join("\n"), "");
        }
        // What a person sees the keys go to.
        function ringed(): var {
            const lines = bar.current ? Array.from({ length: bar.current.count }, (none, at) => bar.current.itemAt(at)) : [];
            return [work, title(0), title(1), title(2), ...lines].filter(item => item.activeFocus && item.visible && item.enabled);
        }
        function title(index: int): Item {
            return Array.from(bar.children).find(child => child instanceof Row).children[index];
        }

        function test_keys_data(): var {
            return [
                { tag: "lines that cannot be chosen are skipped", keys: [Qt.Key_F10, Qt.Key_Down, Qt.Key_Down, Qt.Key_Return], chosen: ["app/quit"] },
                { tag: "from menu to menu, by way of one without a line to choose", keys: [Qt.Key_F10, Qt.Key_Down, Qt.Key_Right, Qt.Key_Right, Qt.Key_Return], chosen: ["edit/copy"] },
                { tag: "and back", keys: [Qt.Key_F10, Qt.Key_Right, Qt.Key_Down, Qt.Key_Left, Qt.Key_Return], chosen: ["app/about"] },
                { tag: "escape from such a one", keys: [Qt.Key_F10, Qt.Key_Right, Qt.Key_Down, Qt.Key_Escape], chosen: [] },
                { tag: "letters", keys: [Qt.Key_E | Qt.AltModifier, Qt.Key_O], chosen: ["edit/copy"] },
                { tag: "a letter of what cannot be chosen", keys: [Qt.Key_O | Qt.AltModifier, Qt.Key_U, Qt.Key_Escape], chosen: [] },
                { tag: "round the end", keys: [Qt.Key_F10, Qt.Key_Left, Qt.Key_Down, Qt.Key_Return], chosen: ["edit/copy"] },
                { tag: "alt alone", keys: [Qt.Key_Alt, Qt.Key_Down, Qt.Key_Return], chosen: ["app/about"] },
                { tag: "escape from a menu", keys: [Qt.Key_F10, Qt.Key_Down, Qt.Key_Escape], chosen: [] }
            ];
        }
        function test_keys(data: var): void {
            for (const key of data.keys) {
                keyClick(key & ~Qt.AltModifier, key & Qt.AltModifier);
                wait(1);
                compare(ringed().length, 1, "the focus is in sight at one place");
            }
            tryCompare(bar, "openIndex", -1);
            compare(mainMenu.chosen, data.chosen);
            tryVerify(() => work.activeFocus, 1000, "the focus is back where it was");
        }

        function test_altWithAnotherKeyIsNoVisit(): void {
            for (const taken of [Qt.Key_X, Qt.Key_Left]) {
                keyPress(Qt.Key_Alt);
                keyClick(taken, Qt.AltModifier);
                keyRelease(Qt.Key_Alt);
                verify(work.activeFocus);
            }
        }

        function test_pointer(): void {
            mouseClick(title(0));
            compare(bar.openIndex, 0);
            mouseClick(title(0));
            tryCompare(bar, "openIndex", -1);
            mouseClick(title(0));
            compare([0, 1].map(at => bench.isSeparator(bar.current.itemAt(at))), [false, true]);
            compare(bench.spoken(bar.current.contentItem).name, "Wendlow");
            mouseMove(title(2), 5, 5);
            tryCompare(bar, "openIndex", 2);
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
