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
        name: "Moments"
        view: face

        readonly property EditorRoot root: bench.host.root
        readonly property var moments: root.face

        function init(): void {
            ThemeSource.reduceMotion = true;
            scene.width = 980;
            scene.height = 832;
            enter("powerUser");
            keyClick(Qt.Key_F, Qt.ControlModifier);
            verify(bench.press(face, "Moments, 400"));
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Right);
            tryVerify(() => at() === 0, 2000, "the keys are at the first moment");
        }
        // The place of the moment that has the focus.
        function at(): int {
            return focused()?.content?.place ?? -1;
        }

        function test_aScreenReaderFindsTheDaysAndTheirMoments(): void {
            tryVerify(() => said("Heading").length > 0);
            verify(/^Friday, (20 November|November 20)/.test(said("Heading")[0]), said("Heading")[0]);
            says("StaticText", "400 moments in all");
            says("List", "Moments");
            verify(said("ListItem")[0].endsWith(" on screen, " + focused().content.time + "*"), said("ListItem")[0]);
            compare(said("ListItem").filter(name => name.startsWith("Codex, ")).length > 0, true, "a session says its tool");
            everythingIsNamed();
        }

        function test_theKeysWalkFromRowToRow(): void {
            const steps = [["Right", 1], ["Right", 2], ["Down", 5], ["Left", 4], ["Up", 1], ["Home", 0], ["Up", 0]];
            for (const [key, place] of steps) {
                keys(key);
                compare(at(), place, key);
                verify(focused().ringed && focused().visible);
            }
            keys("PageDown PageDown");
            verify(at() > 12);
            const item = focused();
            const y = item.mapToItem(face, 0, 0).y;
            verify(y >= 76 + 44 && y + item.height <= scene.height, "in sight, and not below the day: " + y);
            keys("End");
            tryCompare(moments.grid, "count", 400);
            tryVerify(() => at() === 399);
            keys("Home Left");
            compare(at(), -1, "to the rail");
        }

        function test_aMomentOpensLargeAndGivesTheFocusBack(): void {
            for (const [place, role] of [[0, "a picture"], [1, "words"]]) {
                keys("Home");
                for (let step = 0; step < place; ++step)
                    keys("Right");
                const cell = focused();
                const title = cell.content.textCard ? cell.content.title : cell.content.caption;
                keys("Return");
                verify(root.modal && moments.lightbox.open);
                says("Dialog", title);
                tryVerify(() => focused() !== cell);
                keys("Left Right Up Down X");
                keyClick(Qt.Key_F, Qt.ControlModifier);
                verify(!root.search.searching && moments.lightbox.open, role);
                if (place === 0)
                    says("Button", "Open*");
                everythingIsNamed();
                // Round, and never out.
                for (let step = 0; step < 4; ++step) {
                    keys("Tab");
                    verify(focused().text === undefined || ["Open", "Copy picture", "Close"].includes(focused().text), role);
                }
                keys("Escape");
                verify(!root.modal);
                tryVerify(() => focused() === cell && cell.ringed, 2000, role);
            }
        }

        function test_theDayStaysAndNothingMovesWhenTheWindowIsNarrower(): void {
            keys("PageDown PageDown PageDown");
            const place = at();
            verify(moments.grid.stickyTitle.length > 0);
            const days = said("Heading");
            verify(days.includes(moments.grid.stickyTitle));
            scene.width = 560;
            scene.height = 420;
            wait(50);
            compare(at(), place);
            ThemeSource.textScale = 1.5;
            wait(50);
            compare(at(), place);
            keys("Down");
            const y = focused().mapToItem(face, 0, 0).y;
            verify(y > 0 && y + focused().height <= scene.height, y);
            ThemeSource.textScale = 1;
        }
    }
}
