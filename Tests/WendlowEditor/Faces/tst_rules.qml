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
        name: "Rules"
        view: face

        readonly property EditorRoot root: bench.host.root
        readonly property var rules: root.face

        function init(): void {
            ThemeSource.reduceMotion = true;
            scene.width = 980;
            scene.height = 832;
            enter("someData");
            keyClick(Qt.Key_F, Qt.ControlModifier);
            verify(bench.press(face, "Rules, 3"));
            root.bar.pickerOpen = true;
            wait(0);
            verify(bench.press(face, "/work/ferry"));
            // The menu gives the focus to its chip.
            tryVerify(() => focused() && focused().text === "/work/ferry");
            keyClick(Qt.Key_Tab);
        }

        function test_aScreenReaderFindsEverythingInItsOrder(): void {
            compare(said("Heading"), ["Rules", "Rules riding every prompt", "The stack a session receives at /work/ferry", "Rules modules on this scope chain", "Rules filed here"]);
            // Rows that have gone are heard of until the next frame.
            const rows = ["Times in the harbour's zone, never the machine's*", "Write commit messages in the imperative*", "Write commit messages in the imperative*", "safety*", "timetables*", "timetables*"];
            tryVerify(() => said("ListItem").sort().join() === rows.join(), 2000, said("ListItem").join());
            compare(bench.told(face, "safety"), "/, Read before work that touches safety., rev 1");
            verify(bench.told(face, "Write commit messages in the imperative").startsWith("/, Return edits it"));
            says("List", "Rules at /work/ferry");
            says("Button", "+ New rule*");
            everythingIsNamed();
        }

        function test_theKeysWalkEditAndLeave(): void {
            const list = focused().ListView.view;
            compare(list.currentIndex, rules.rows.stop(-1, 1));
            verify(focused() === list.currentItem && list.currentItem.ringed);
            keyClick(Qt.Key_Up);
            compare(list.currentIndex, rules.rows.stop(-1, 1), "it stays at the first");
            keyClick(Qt.Key_End);
            compare(list.currentIndex, list.count - 1);
            keys("Home Return");
            verify(focused().selectedText === "Write commit messages in the imperative");
            write("Add");
            keys("Up Down PageDown Right Home Left");
            compare(focused().text, "Add", "no key leads out of a field");
            keyClick(Qt.Key_Escape);
            tryVerify(() => focused() === list.currentItem && list.currentItem.ringed, 2000, "the row has the focus again");
            verify(!rules.outcome, "nothing was written");
            keyClick(Qt.Key_Return);
            write("Add");
            keyClick(Qt.Key_Return);
            says("AlertMessage", "This is a seeded design world — it has no store to write to. Switch to My real data (⌘4) to edit.");
            tryVerify(() => focused() === list.currentItem && !list.currentItem.editing);
            keyClick(Qt.Key_Return);
            compare(focused().text, "Add", "what was refused is not lost");
            keys("Escape Left");
            verify(!list.activeFocus, "to the rail");
        }

        function test_theSheetKeepsTheFocusAndGivesItBack(): void {
            const list = focused().ListView.view;
            keys("End Up Up Return");
            verify(rules.composer.open, "the head of what is filed leads to the sheet");
            says("Dialog", "New rule at /work/ferry");
            write("Boats first");
            compare(rules.composer.text, "Boats first");
            verify(!root.search.searching && root.modal);
            keyClick(Qt.Key_Tab);
            write("so");
            compare(rules.composer.why, "so");
            compare(said("RadioButton"), ["inline (no rules module — rides every prompt)*", "timetables*", "a new rules module:*"]);
            keys("Tab Down");
            compare(rules.composer.picked, 1);
            keyClick(Qt.Key_Up);
            compare(rules.composer.picked, 0);
            keyClick(Qt.Key_Tab);
            write("harbours");
            compare(rules.composer.picked, 2);
            keyClick(Qt.Key_Tab);
            compare(focused().text, "Cancel");
            keyClick(Qt.Key_Tab);
            compare(focused().text, "Add rule");
            keyClick(Qt.Key_Tab);
            compare(focused().text, "Boats first", "around, and never out");
            keys("Backtab Return");
            says("AlertMessage", "This is a seeded design world — it has no store to write to. Switch to My real data (⌘4) to edit.");
            verify(rules.composer.open && focused().visible);
            keyClick(Qt.Key_Escape);
            verify(!rules.composer.open);
            tryVerify(() => focused() === list.currentItem);
            keyClick(Qt.Key_N, Qt.ControlModifier);
            verify(rules.composer.open);
            compare(rules.composer.text, "");
            verify(bench.press(face, "Cancel"));
            tryVerify(() => focused() === list.currentItem);
        }

        function test_aTallSheetScrollsInALowWindow(): void {
            scene.height = 320;
            keyClick(Qt.Key_N, Qt.ControlModifier);
            wait(0);
            for (let at = 0; at < 8; ++at) {
                const spot = focused().mapToItem(null, 0, 0);
                verify(spot.y >= 0 && spot.y + focused().height <= 320, at + ": " + spot.y);
                keyClick(Qt.Key_Tab);
            }
            keyClick(Qt.Key_Escape);
        }
    }
}
