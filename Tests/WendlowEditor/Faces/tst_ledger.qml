import QtQuick
import QtTest
import WendlowControls
import WendlowEditor

// The meetings and the mods, as a person works them.
Item {
    id: scene

    width: 980
    height: 832

    EditorRootView {
        id: window

        anchors.fill: parent
        root: bench.ledger("meetings")
        focus: true
    }

    EditorCase {
        name: "Ledger"
        view: window

        readonly property EditorRoot root: window.root
        readonly property var face: root.face

        // At the first row of this face.
        function begin(name) {
            bench.ledger(name);
            wait(0);
            window.forceActiveFocus();
            keyClick(Qt.Key_F, Qt.ControlModifier);
            keys("Tab Right");
            tryVerify(() => list() !== null);
        }
        function list() {
            return focused()?.ListView.view ?? null;
        }
        function deletes() {
            return bench.asked().filter(each => each.includes(": ")).join();
        }
        // Opens the first meeting, with so many lines.
        function openMeeting(lines) {
            begin("meetings");
            keyClick(Qt.Key_Return);
            tryVerify(() => root.modal);
            bench.answerTranscript(lines);
            tryVerify(() => said("ListItem").some(each => each.startsWith("Mara: Line 0")));
        }
        function transcript() {
            let up = focused();
            while (up && up.resume === undefined)
                up = up.parent;
            return up;
        }
        function bin(line) {
            return bench.middleOf(window, "Mara: Line " + line, "Delete this line");
        }

        function init(): void {
            ThemeSource.reduceMotion = true;
        }
        function cleanup(): void {
            root.back();
            wait(0);
            compare(bench.warnings().join("\n"), "");
        }

        function test_meetingsOpenByKeyAndGiveTheFocusBack(): void {
            begin("meetings");
            says("StaticText", "3 meetings");
            const rows = list();
            keys("Down Down Down Up");
            compare(rows.currentIndex, 1);
            keyClick(Qt.Key_Return);
            tryVerify(() => root.modal);
            says("Dialog", "Budget");
            says("StaticText", "Reading the transcript…");
            bench.answerTranscript(3);
            compare(bench.asked().join(), "Budget");
            tryVerify(() => said("ListItem").includes("Mara: Line 2"));
            everythingIsNamed();
            write("backup");
            keyClick(Qt.Key_F, Qt.ControlModifier);
            keys("Up Down Left Right Return Space");
            compare(root.search.text, "");
            compare(rows.currentIndex, 1);
            verify(root.modal && deletes() === "", "a key that is still held down deletes nothing");
            keyClick(Qt.Key_Escape);
            verify(!root.modal);
            tryVerify(() => focused() === rows.currentItem && rows.currentItem.ringed);

            const run = rows.currentItem;
            const spot = run.mapToItem(window, run.width / 2, run.height - 16);
            mousePress(window, spot.x, spot.y);
            tryVerify(() => !run.ringed, 1000, "a press takes it, without a ring");
            mouseRelease(window, spot.x, spot.y);
            tryVerify(() => root.modal);
            keyClick(Qt.Key_Return);
            tryVerify(() => root.modal);
            mouseClick(window, 20, 400);
            tryVerify(() => !root.modal, 2000, "what lies outside closes it");
        }

        function test_linesAreDeletedByKey(): void {
            openMeeting(4);
            keys("Tab Tab");
            compare(focused().words, "Line 1");
            keys("Return Return");
            compare(deletes(), "Atlas: 1 w", "it takes no second key");
            bench.answerDelete(1);
            compare(transcript().currentIndex, -1);
            keyClick(Qt.Key_Return);
            compare(deletes(), "Atlas: 1 w", "nor does what came in its place");
            keyClick(Qt.Key_Tab);
            compare(focused().words, "Line 2");
            keys("Backtab Backtab");
            compare(focused().text, "Close");
            keys("Tab Tab Tab Tab Tab");
            compare(focused().text, "Close", "around, and never out");
            keys("Tab Tab Delete");
            compare(deletes(), "Atlas: 1 w,Atlas: 0 w");
            bench.refuseDelete();
            says("AlertMessage", "gone");
        }

        function test_aDoubleClickDeletesOneLine(): void {
            openMeeting(6);
            const spot = bin(2);
            mouseClick(window, spot.x, spot.y);
            compare(deletes(), "", "nor the one that opened it");
            wait(550);
            mouseMove(window, spot.x, spot.y);
            mouseClick(window, spot.x, spot.y);
            compare(deletes(), "Atlas: 2 w");
            bench.answerDelete(2);
            tryVerify(() => bin(3).y === spot.y, 400, "the next one stands there now");
            mouseClick(window, spot.x, spot.y);
            compare(deletes(), "Atlas: 2 w");
            wait(550);
            mouseClick(window, spot.x, spot.y);
            compare(deletes(), "Atlas: 2 w,Atlas: 3 w");
            bench.refuseDelete();
        }

        function test_aLongTranscriptIsMovedThroughAndStaysWhereItIs(): void {
            openMeeting(20000);
            const lines = transcript();
            verify(lines.contentItem.children.length < 60, "made as far as it is seen");
            keyClick(Qt.Key_PageDown);
            const first = lines.indexAt(100, lines.contentY + 20);
            verify(first > 5 && first < 40, first);
            keys("End Home");
            verify(lines.atYBeginning);
            keyClick(Qt.Key_End);
            tryVerify(() => lines.indexAt(100, lines.contentY + lines.height - 30) === 19999);
            // One far above goes while a reader is down here.
            const at = lines.indexAt(100, lines.contentY + 100);
            const before = lines.itemAtIndex(at).mapToItem(null, 0, 0).y;
            face.eraseLine(3);
            bench.answerDelete(3);
            tryVerify(() => lines.itemAtIndex(at - 1)?.words === "Line " + at);
            fuzzyCompare(lines.itemAtIndex(at - 1).mapToItem(null, 0, 0).y, before, 0.5);
        }

        function test_modsOpenTheReportOfARun(): void {
            begin("mods");
            const rows = list();
            everythingIsNamed();
            verify(said("Button").some(each => each.endsWith("*")));
            keys("End");
            keyClick(Qt.Key_Return);
            verify(!root.modal, "a run without a report leads nowhere");
            verify(bench.told(window, focused().text).endsWith("final message") || focused().help.endsWith("final message"));
            keys("Up Return");
            tryVerify(() => root.modal);
            const text = focused();
            verify(text.lineCount < 1000, "laid out as far as it is seen");
            says("Dialog", face.reportTitle);
            compare(text.spoken.slice(-7), "the end");
            write("backup");
            compare(root.search.text, "");
            keyClick(Qt.Key_A, Qt.ControlModifier);
            bench.clipboard = "";
            keyClick(Qt.Key_C, Qt.ControlModifier);
            compare(bench.clipboard, face.report.replace("\t", "    ").replace("\r", ""), "and copied whole");
            compare(text.lineCount, 2004);
            keyClick(Qt.Key_Tab);
            compare(focused().text, "Done");
            keyClick(Qt.Key_Return);
            verify(!root.modal);
            tryVerify(() => focused() === rows.currentItem && rows.currentItem.ringed);
        }
    }
}
