import QtQuick
import QtTest
import WendlowControls
import WendlowEditor

Item {
    id: scene

    width: 980
    height: 832

    EditorHostFace {
        id: face

        anchors.fill: parent
        host: bench.host
        focus: true
    }

    EditorCase {
        name: "Scopes"
        view: face

        readonly property EditorRoot root: bench.host.root
        readonly property var scopes: root.face

        function init(): void {
            ThemeSource.reduceMotion = true;
            scene.width = 980;
            scene.height = 832;
            enter("someData");
            keyClick(Qt.Key_F, Qt.ControlModifier);
            root.bar.pickerOpen = true;
            wait(0);
            // By key, so that the focus has to be found again where no chip is left to have it.
            keys("Tab Return");
            compare(bench.face(), "scopes");
            tryVerify(() => focused() && focused().ListView.view && focused().path === "/");
        }

        function test_aScreenReaderFindsEverything(): void {
            compare(said("Heading"), ["Scopes"]);
            tryVerify(() => said("ListItem").length === scopes.rows.rowCount());
            verify(said("ListItem").includes("/work/ferry*"));
            verify(/^.*\d+ \w+.*, \/home\/me\/work\/ferry, Return renames it$/.test(bench.told(face, "/work/ferry")), bench.told(face, "/work/ferry"));
            says("Button", "+ New scope*");
            verify(bench.press(face, "/work/ferry"));
            verify(bench.told(face, "/work/ferry").endsWith(" selected"));
            says("Button", "Retire… (writes a script)*");
            everythingIsNamed();
        }

        function test_theKeysWalkRenameAndLeave(): void {
            const list = focused().ListView.view;
            compare(scopes.selected, 0, "by key the selection is where the focus is");
            keys("Up");
            compare(scopes.selected, 0, "it stays at the first");
            keys("End");
            compare(scopes.selected, list.count - 1);
            keys("Home Down");
            const row = focused();
            verify(row === list.currentItem && row.ringed);
            keys("Tab");
            compare(focused().text, "Map folder…");
            keys("Right Right");
            compare(focused().text, "Retire… (writes a script)");
            keys("Left Up Down");
            verify(focused() === row, "a step leads out of the actions, to a row");
            compare(said("Button").filter(name => name.startsWith("Retire")).length, 1, "of the selected row alone");
            keys("Return");
            compare(said("Dialog"), ["Rename " + row.path]);
            compare(focused().text, row.path);
            keys("Escape");
            tryVerify(() => !scopes.sheet.open && focused() === row, 2000, "the row has the focus again");
            keys("Left");
            verify(!list.activeFocus, "to the rail");
        }

        function test_theSheetShowsTheMoveAndKeepsTheFocus(): void {
            verify(bench.press(face, "/work"));
            keys("Return");
            says("StaticText", "That is its path already.");
            const button = () => said("Button").filter(name => name.startsWith("Write"));
            compare(bench.told(face, "Write migration script"), "That is its path already.");
            keyClick(Qt.Key_A, Qt.ControlModifier);
            write("x");
            says("StaticText", "A scope’s path begins with “/”.");
            keys("Home");
            write("/");
            compare(scopes.sheet.path, "/x");
            tryVerify(() => said("ListItem").includes("/work/ferry → /x/ferry"));
            keys("Tab Down");
            verify(focused().to === "/x/ferry", "the table is walked by key");
            keys("Tab");
            compare(focused().text, "Cancel");
            keys("Tab");
            compare(focused().text, "Write migration script");
            keys("Tab");
            compare(focused().text, "/x", "around, and never out");
            keys("Escape");
            tryVerify(() => !scopes.sheet.open && focused().path === "/work");
            compare(scopes.script, "", "nothing was written");
        }

        function test_aRefusedMappingStaysInItsSheet(): void {
            verify(bench.press(face, "/work/ferry"));
            keys("Tab Space");
            compare(said("Dialog"), ["Map a folder to /work/ferry"]);
            compare(focused().Accessible.name, "Folder");
            write("/p");
            keys("Return");
            says("AlertMessage", "This is a seeded design world — it has no store to write to. Switch to My real data (⌘4) to edit.");
            verify(scopes.sheet.open && focused().text === "/p");
            everythingIsNamed();
            keys("Escape");
            tryVerify(() => focused().text === "Map folder…", 2000, "back to what opened it");
            keyClick(Qt.Key_N, Qt.ControlModifier);
            compare(said("Dialog"), ["New scope"]);
            compare(focused().Accessible.name, "Scope path");
            keys("Tab");
            compare(focused().Accessible.name, "Folder");
            keys("Escape");
        }

        function test_nothingIsCutOffInALowNarrowWindow_data(): var {
            return [{ tag: "scale 1", scale: 1 }, { tag: "scale 1.5", scale: 1.5 }];
        }
        function test_nothingIsCutOffInALowNarrowWindow(data: var): void {
            ThemeSource.textScale = data.scale;
            scene.width = 560;
            scene.height = 392;
            verify(bench.press(face, "/work/ferry"));
            const bottom = item => item.mapToItem(null, 0, item.height).y;
            for (let at = 0; at < 3; ++at) {
                keys("Tab");
                tryVerify(() => focused().mapToItem(null, 0, 0).y > 0 && bottom(focused()) <= 392 && focused().width < 300, 2000, focused().text);
            }
            keys("Up Down Return");
            tryVerify(() => scopes.sheet.open);
            for (let at = 0; at < 4; ++at) {
                tryVerify(() => focused().mapToItem(null, 0, 0).y >= 0 && bottom(focused()) <= 392, 2000, at + ": " + focused());
                keys("Tab");
            }
            keys("Escape");
            ThemeSource.textScale = 1;
        }
    }
}
