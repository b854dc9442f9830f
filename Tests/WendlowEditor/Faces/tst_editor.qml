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

    Component {
        id: other

        EditorRootView {
            width: 980
            height: 832
        }
    }

    EditorCase {
        name: "Editor"
        view: face

        readonly property EditorRoot root: bench.host.root

        function init(): void {
            ThemeSource.reduceMotion = true;
            ThemeSource.textScale = 1;
            face.host = bench.host;
            scene.width = 980;
            scene.height = 832;
            enter("powerUser");
            keyClick(Qt.Key_F, Qt.ControlModifier);
        }

        function test_aScreenReaderFindsEverythingNamed(): void {
            compare(said("PageTab"), ["Memories, 1920*", "findings, 276*", "persons, 275*", "preferences, 275*", "4 more*", "Meetings*", "Moments, 400*", "Rules, 102*", "Mods*", "Scopes, 18*"]);
            says("ListItem", "findings, 276*");
            says("Heading", "Memories");
            compare(said("ListItem").length, 7);
            verify(bench.press(face, "decisions, 274"));
            compare(bench.openType(), "decision");
            for (const name of ["scope: /*", "scope*", "owner*", "source*", "Back to Memories*"])
                says("Button", name);
            says("StaticText", "274 memories");
            compare(said("RadioButton"), ["newest*", "oldest*", "relevance*"]);
            compare(bench.told(face, "Memories, 1920"), " selected");
            compare(bench.told(face, "findings, 276"), "");
            verify(said("ListItem").length >= 9);
            const newest = said("ListItem")[0];
            verify(bench.press(face, "oldest"));
            tryVerify(() => said("ListItem")[0] !== newest);
            verify(bench.press(face, "owner"));
            tryVerify(() => said("CheckBox").length === 4);
            verify(bench.press(face, said("CheckBox")[0].slice(0, -1)));
            says("Button", "clear*");
            compare(bench.told(face, "owner"), "1 picked");
            verify(said("StaticText").some(line => / of 274$/.test(line)));
            bench.open("ticket");
            tryVerify(() => said("ListItem").some(line => /^doing, \d+\*$/.test(line)));
            says("StaticText", "Showing 50 of 273 — scroll the flat list for the rest.");
            verify(bench.press(face, "Mods, 0") || bench.press(face, "Mods"));
            says("StaticText", "This world models no mods. Switch to your real data to see the registry.");
            everythingIsNamed();
        }

        function test_typingAnywhereSearchesAndEscapeGoesBack(): void {
            keys("Tab Down");
            compare(bench.openType(), "finding");
            write("backup");
            compare(root.search.text, "backup");
            verify(root.search.searching);
            says("Heading", "Results for “backup”");
            keys("Down Down Up");
            compare(root.search.selection, 1);
            compare(bench.openType(), "finding", "the arrows are the search's");
            keyClick(Qt.Key_Escape);
            verify(!root.search.searching);
            keyClick(Qt.Key_Escape);
            compare(bench.openType(), "");
            compare(bench.face(), "memory");
        }

        function test_aRowAndAHitOpenByClickAndByPress(): void {
            bench.open("decision");
            wait(0);
            const list = bench.memories().list.lines;
            const title = list.data(list.index(1, 0), Qt.DisplayRole);
            const open = () => said("StaticText").some(line => line.startsWith("Why: "));
            const row = bench.middle(face, title);
            mouseClick(scene, row.x, row.y);
            tryVerify(open, 2000, "by click");
            verify(bench.press(face, title));
            tryVerify(() => !open(), 2000, "by press");
            write("backup");
            const hits = root.search.hits;
            const first = hits.data(hits.index(0, 0), Qt.DisplayRole);
            const second = hits.data(hits.index(1, 0), Qt.DisplayRole);
            tryVerify(() => bench.told(face, first).endsWith(" selected"));
            verify(!bench.told(face, second).endsWith(" selected"));
            const hit = bench.middle(face, second);
            mouseClick(scene, hit.x, hit.y);
            verify(!root.search.searching, "by click");
            tryVerify(open);
            write("backup");
            verify(bench.press(face, first));
            verify(!root.search.searching, "by press");
        }

        function test_aMemoryThatCannotBeReadSaysSo(): void {
            createTemporaryObject(other, scene, { root: bench.withoutDetails() });
            says("StaticText", "The rest of this memory could not be read. Open it again to ask once more.");
        }

        function test_theSelectedHitIsInSight(): void {
            scene.height = 500;
            write("backup");
            const hits = root.search.hits;
            verify(hits.rowCount() > 12);
            for (const key of [Qt.Key_Down, Qt.Key_Up]) {
                for (let at = 1; at < hits.rowCount(); ++at)
                    keyClick(key);
                compare(root.search.selection, key === Qt.Key_Down ? hits.rowCount() - 1 : 0);
                says("ListItem", hits.data(hits.index(root.search.selection, 0), Qt.DisplayRole) + "*");
            }
        }

        function test_returnOpensAHitWithTheFocusAtIt(): void {
            enter("someData");
            write("tide");
            const hit = root.search.hits.data(root.search.hits.index(0, 0), Qt.DisplayRole);
            keyClick(Qt.Key_Return);
            compare(bench.openType(), "finding");
            tryVerify(() => said("StaticText").some(line => line.startsWith("Their backup runs")), 2000, "it is unfolded");
            const list = focused().ListView.view;
            compare(list.currentItem.title, hit);
            verify(list.currentItem.open);
            verify(list.currentItem.ringed, "the focus is to be seen");
            keyClick(Qt.Key_Return);
            verify(!list.currentItem.open);
            keys("Down Return");
            verify(list.currentItem.open);
            keyClick(Qt.Key_Escape);
            verify(root.search.searching, "it stands as it was found");
        }

        function test_theArrowsReadATallMemoryBeforeTheyLeaveIt(): void {
            enter("someData");
            write("tide");
            keyClick(Qt.Key_Return);
            const list = focused().ListView.view;
            scene.height = 310;
            keys("Return Return");
            tryVerify(() => list.currentItem.height > list.height, 2000, "it is taller than the list: " + list.currentItem.height + " " + list.height);
            tryVerify(() => list.contentY === list.currentItem.y, 2000, "from its beginning on");
            const id = list.currentIndex;
            const bottom = () => list.currentItem.y + list.currentItem.height - list.contentY - list.height;
            for (let at = 0; at < 50 && bottom() > 0; ++at)
                keyClick(Qt.Key_Down);
            fuzzyCompare(bottom(), 0, 1);
            compare(list.currentIndex, id);
            keyClick(Qt.Key_PageUp);
            fuzzyCompare(list.contentY, list.currentItem.y, 1);
            compare(list.currentIndex, id);
            keyClick(Qt.Key_Up);
            compare(list.currentIndex, id - 1, "and on to the next");
        }

        function test_theGridAndTheRailAreWalkedByKey(): void {
            keyClick(Qt.Key_Down);
            compare(bench.openType(), "finding");
            for (let at = 0; at < 20; ++at)
                keyClick(Qt.Key_Down);
            compare(bench.face(), "scopes");
            keyClick(Qt.Key_Up, Qt.ShiftModifier);
            compare(bench.face(), "scopes");
            enter("powerUser");
            keys("Tab Right");
            verify(focused().ringed, "a card has the focus");
            keys("Right Down Return");
            compare(bench.openType(), "note");
        }

        function test_theScopeMenuPicksOneAndGivesTheFocusBack(): void {
            verify(bench.press(face, "scope: /"));
            compare(root.bar.pickerOpen, true);
            tryVerify(() => focused() !== null);
            wait(0);
            compare(bench.indents(face).slice(0, 4), [0, 0, 12, 24], "all scopes, the root, what is in it");
            keys("Down Down Down Return");
            compare(root.bar.pickerOpen, false);
            compare(root.bar.label, "/work/ferry");
            says("Button", "scope: /work/ferry*");
            tryVerify(() => focused().ringed === true, 2000, "the chip has the focus again");
            compare(focused().text, "/work/ferry");
            keyClick(Qt.Key_Space);
            compare(root.bar.pickerOpen, true);
            wait(0);
            mouseClick(scene, 700, 700);
            compare(root.bar.pickerOpen, false);
            wait(0);
            write("backup");
            compare(root.search.text, "backup", "a menu that was left by a press does not keep the keys");
        }

        function test_theFiltersAreWalkedByKey(): void {
            bench.open("decision");
            wait(0);
            verify(bench.press(face, "owner"));
            verify(bench.press(face, "owner"));
            for (let at = 0; at < 30 && focused().text !== "owner"; ++at)
                keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Right);
            compare(focused().text, "source");
            keys("Left Down");
            tryCompare(bench.memories().list.filters, "panelOpen", true);
            compare(focused().on, false, "the first value has it");
            keyClick(Qt.Key_Right);
            const second = focused().text;
            keyClick(Qt.Key_Space);
            tryVerify(() => focused().on === true && focused().text === second, 2000, "what is picked keeps the focus");
            keyClick(Qt.Key_Escape);
            compare(bench.memories().list.filters.panelOpen, false);
            compare(focused().text, "owner");
            verify(focused().ringed);
            compare(focused().picks, 1);
            compare(bench.openType(), "decision", "Escape closed the panel alone");
        }

        // By a ring, as a text being typed, or as the line of a menu.
        function showsFocus(item) {
            return item.ringed === true || item.parent.ringed === true || item.cursorVisible === true || item.lit === true || item.highlighted === true;
        }
        // Any keys in any order: what has the focus is there, is seen, and shows it.
        function test_whateverIsPressedTheFocusIsSeen_data(): var {
            return [1, 2, 3, 4].map(seed => ({ tag: "walk " + seed, seed }));
        }
        function test_whateverIsPressedTheFocusIsSeen(data: var): void {
            const keys = ["Tab", "Tab", "Tab", "Backtab", "Up", "Down", "Down", "Left", "Right", "Right", "Return", "Return", "Space", "Escape", "Home", "End", "PageDown", "PageUp", "Menu", "B", "A"];
            const walked = [];
            let state = data.seed;
            for (let at = 0; at < 250; ++at) {
                state = (state * 1103515245 + 12345) % 2147483648;
                const key = keys[Math.floor(state / 65536) % keys.length];
                walked.push(key);
                const before = String(focused());
                keyClick(Qt["Key_" + key]);
                wait(1);
                const item = focused();
                const where = () => walked.slice(-6).join(" ") + " at " + item + " " + (item?.text ?? "") + " after " + before;
                verify(item && item.visible && item.width > 0, "nothing is seen: " + where());
                verify(showsFocus(item), "no ring: " + where());
            }
        }

        function test_aDoorGivesTheFocusToTheFirstPlaceBehindIt(): void {
            verify(bench.press(face, "4 more"));
            tryVerify(() => focused().title === "decisions");
        }

        function test_aMemoryIsCopiedFromItsRow(): void {
            enter("someData");
            write("tide");
            keyClick(Qt.Key_Return);
            tryVerify(() => focused().known);
            const row = focused();
            for (const [keys, begins] of [[[], row.title], [[Qt.Key_Menu, Qt.Key_Return], row.title], [[Qt.Key_Menu, Qt.Key_Down, Qt.Key_Return], row.title], [[Qt.Key_Menu, Qt.Key_Down, Qt.Key_Down, Qt.Key_Return], "/"]]) {
                bench.clipboard = "";
                if (keys.length === 0)
                    keyClick(Qt.Key_C, Qt.ControlModifier);
                for (const key of keys) {
                    keyClick(key);
                    wait(1);
                }
                tryVerify(() => bench.clipboard.startsWith(begins), 2000, keys + ": " + bench.clipboard);
                compare(bench.clipboard.includes("\n\nWhy: "), keys.length === 3);
                tryVerify(() => row.copied && row.activeFocus && row.ringed, 2000, "told where it was copied from");
            }
        }

        function test_whatIsMadeUpSaysSoAndLeadsBack(): void {
            says("AlertMessage", "These memories are made up.");
            verify(bench.press(face, "Back to my real data"));
            tryVerify(() => !said("AlertMessage").includes("These memories are made up."));
            tryVerify(() => focused()?.visible === true && focused().width > 0);
        }

        function test_aHitLeadsBackToItsResults(): void {
            write("backup");
            keys("Down Return");
            verify(!root.search.searching);
            says("Button", "Results for “backup”*");
            for (const back of [() => keyClick(Qt.Key_Escape), () => keyClick(Qt.Key_Left, Qt.AltModifier), () => verify(bench.press(face, "Results for “backup”"))]) {
                back();
                verify(root.search.searching);
                compare(root.search.selection, 1);
                tryVerify(() => showsFocus(focused()));
                keyClick(Qt.Key_Return);
                verify(!root.search.searching);
            }
        }

        // Every state of which there is a picture, with words of any size, in the smallest window and in its own.
        function test_wordsStandInTheirPlace_data(): var {
            return ["refused", "dayZero", "powerUser"].map(tag => ({ tag }));
        }
        function test_wordsStandInTheirPlace(data: var): void {
            const bar = () => 28 * ThemeSource.textScale;
            const faults = new Set();
            if (data.tag === "refused")
                face.host = bench.hostOf(true);
            else
                bench.world(data.tag);
            bench.pose(data.tag, state => {
                for (const [scale, width, height] of [[1, 560, 420], [1.25, 980, 860], [1.5, 560, 420], [1.5, 980, 860], [2, 747, 560]]) {
                    ThemeSource.textScale = scale;
                    scene.width = width;
                    scene.height = height - bar();
                    let found = [];
                    for (let frame = 0; frame < 25 && (frame < 2 || found.length > 0); ++frame) {
                        wait(20);
                        found = bench.outOfPlace(face);
                    }
                    for (const fault of found)
                        faults.add(state + " x" + scale + " " + width + ": " + fault);
                }
            });
            for (const fault of faults)
                console.warn(fault);
            compare(faults.size, 0);
        }

        function test_largerWordsLeaveOneWhereOneWas(): void {
            bench.open("decision");
            wait(0);
            keys("Tab Right");
            for (let at = 0; at < 40; ++at)
                keyClick(Qt.Key_Down);
            const list = focused().ListView.view;
            compare(list.currentIndex, 40);
            const top = () => list.currentItem.mapToItem(list, 0, 0).y;
            tryVerify(() => top() + 56 <= list.height, 2000, "the list follows the keys");
            for (const scale of [1.5, 2, 1]) {
                ThemeSource.textScale = scale;
                tryVerify(() => top() >= 0 && top() + 56 * scale <= list.height + 1, 2000, "in sight at " + scale);
                verify(list.currentIndex === 40 && focused() === list.currentItem && focused().ringed, "the focus stays: " + list.currentIndex);
                compare(focused().height, 56 * scale);
            }
            list.currentIndex = 0;
            list.positionViewAtIndex(30, ListView.Beginning);
            ThemeSource.textScale = 1.5;
            tryVerify(() => list.indexAt(100, list.contentY + 1) === 30, 2000, "what was read is read on");
        }

        function test_theEndOfAListIsItsLastMemory(): void {
            bench.open("decision");
            wait(0);
            keys("Tab Right End");
            tryVerify(() => focused().index === 273);
            keyClick(Qt.Key_Home);
            compare(focused().index, 0);
        }
    }
}
