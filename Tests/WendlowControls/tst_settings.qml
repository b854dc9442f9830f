import QtQuick
import QtTest
import WendlowControls
import WendlowSettings

Item {
    id: scene

    width: 980
    height: 832

    SettingsFace {
        id: face

        anchors.fill: parent
        root: bench.root
        focus: true
    }

    TestCase {
        name: "Settings"
        when: windowShown

        // Finds what a screen reader would find: the first thing in sight with this name and kind.
        function named(name, kind, under) {
            const children = (under ?? face).children;
            for (let at = 0; at < children.length; ++at) {
                const child = children[at];
                if (!child.visible)
                    continue;
                if (String(child).startsWith(kind) && bench.spoken(child).name === name)
                    return child;
                const inner = named(name, kind, child);
                if (inner)
                    return inner;
            }
            return null;
        }
        function here(name, kind, under) {
            tryVerify(() => named(name, kind, under) !== null, 5000, name);
            return named(name, kind, under);
        }

        function init(): void {
            ThemeSource.reduceMotion = true;
            ThemeSource.textScale = 1;
            scene.width = 980;
            scene.height = 832;
            go("Connected Apps");
        }
        function cleanup(): void {
            compare(bench.warnings().join("\n"), "");
        }
        function go(title: string): void {
            mouseClick(here(title, "SidebarItem_"));
        }

        function test_arrowsMoveThroughThePanes(): void {
            const heads = {
                "General": "Manage how much data is saved to your computer",
                "Connected Apps": "Give your AI superpowers",
                "Recording Control": "Choose what gets remembered",
                "Local AI Classifier": "Runs entirely on your Mac",
                "Recovery": "Your memory is encrypted"
            };
            const panes = Object.keys(heads);
            const stage = Array.from(face.children).find(child => child instanceof Loader);
            compare(bench.root.groups.map(group => group.length), [3, 2]);
            here("Connected Apps", "SidebarItem_").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Home);
            keyClick(Qt.Key_Up);
            for (const title of panes) {
                const place = here(title, "SidebarItem_");
                verify(place.activeFocus && place.ringed && place.here, title);
                here(heads[title], "Label_", stage);
                keyClick(Qt.Key_Down);
            }
            verify(here("Recovery", "SidebarItem_").here, "there is none below it");
            keyClick(Qt.Key_Home);
            keyClick(Qt.Key_End);
            verify(here("Recovery", "SidebarItem_").ringed);
            bench.root.open(0);
            verify(here("General", "SidebarItem_").activeFocus);
            verify(!here("General", "SidebarItem_").ringed, "no key brought the focus here");
            go("Connected Apps");
            verify(!here("Connected Apps", "SidebarItem_").ringed);
        }

        function test_aLongListOfRulesIsWalkedByKeyboardAndMakesOnlyWhatIsInSight(): void {
            go("Recording Control");
            const list = here("We do not record anything, Topics", "QQuickListView");
            tryVerify(() => list.count === 2000);
            verify(list.contentItem.children.length < 60, "made for rows that nobody sees");
            here("topic 1", "RuleEntry_").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_End);
            const last = here("topic 2000", "RuleEntry_");
            verify(last.visualFocus);
            compare(bench.spoken(last).description, "Never recorded");
            fuzzyCompare(last.mapToItem(list, 0, 0).y + last.height, list.height, 1);
        }

        function test_aFieldTakesTheFocusFromAPersonWhoOpensItAlone(): void {
            go("Recording Control");
            mouseClick(here("Add topic", "Button_"));
            tryVerify(() => here("Add topic", "Field_").activeFocus);
            go("General");
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Down);
            here("Add topic", "Field_");
            wait(0);
            verify(here("Recording Control", "SidebarItem_").activeFocus);
            mouseClick(here("Cancel", "Button_"));
        }

        function test_aQuestionHasTheFocusAtItsSafeAnswer(): void {
            go("General");
            const toggle = here("All day screenshots", "Switch_");
            toggle.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            const cancel = here("Cancel", "Button_", toggle.Window.contentItem);
            tryVerify(() => cancel.activeFocus);
            keyClick(Qt.Key_Return);
            tryVerify(() => toggle.activeFocus, 5000, "the focus is given back");
            verify(toggle.on);
            keyClick(Qt.Key_Space);
            here("Delete screenshots", "Button_", toggle.Window.contentItem).clicked();
            tryVerify(() => toggle.activeFocus && toggle.visualFocus, 5000, "nor does it go while the daemon is at work");
            compare(bench.spoken(toggle).description, "Working…");
            verify(toggle.on, "it has not said so yet");
        }

        function test_aSwitchIsOutOfReachWhileItsVerbRuns(): void {
            const row = here("OpenCode", "ConnectedAppRow_");
            const toggle = here("OpenCode", "Switch_");
            const chevron = here("Show details of OpenCode", "Disclosure_");
            const spinner = () => named("", "Spinner_", row) !== null;
            verify(!spinner());
            mouseClick(toggle);
            tryVerify(() => spinner());
            verify(!toggle.enabled);
            compare(bench.spoken(toggle).description, "Working…");
            mouseClick(toggle);
            tryVerify(() => chevron.activeFocus, 5000, "a verb that takes its time leaves the keys with the chevron");
            bench.endVerb();
            tryVerify(() => toggle.enabled && !spinner());
            tryVerify(() => toggle.activeFocus, 5000, "they come back in a turn of their own");
        }

        // A deed takes away the strip that it stood in; the keys are at the switch then, and at the chevron
        // while that is out of reach.
        function test_theKeysStayInTheirRow(): void {
            const toggle = here("Cursor", "Switch_");
            here("Cursor is not as Wendlow left it.", "RowStripFace_");
            here("Disconnect", "Button_").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            tryVerify(() => toggle.enabled && toggle.visualFocus, 5000);
            const fold = here("What changed", "Button_");
            compare(named("What changed", "NoteList_"), null);
            mouseClick(fold);
            here("What changed", "NoteList_");
            verify(bench.spoken(fold).checked);
            bench.root.open(0);
            bench.root.open(1);
        }

        function test_notesAreOnePressAway(): void {
            const row = here("Cursor", "ConnectedAppRow_");
            compare(row.drifted, true);
            tryVerify(() => row.open, 5000, "what has drifted opens by itself");
            verify(here("Not as Wendlow left it", "StateMark_").visible);
            const path = "Copy /home/ada/.cursor/mcp.json";
            mouseClick(here(path, ""));
            compare(bench.copied[bench.copied.length - 1], "/home/ada/.cursor/mcp.json");
            const tall = row.height;
            mouseClick(here("Hide details of Cursor", "Disclosure_"));
            tryVerify(() => named(path, "") === null);
            tryVerify(() => row.height < tall);
            keyClick(Qt.Key_Return);
            here(path, "");
        }

        function test_aLongTableIsUnfoldedAndWalkedByKeyboard(): void {
            here("Show details of Codex", "Disclosure_").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Return);
            const line = number => "Copy /home/ada/p" + number;
            here(line(8), "InventoryLine_");
            compare(named(line(9), "InventoryLine_"), null);
            const list = here("Projects of Codex", "QQuickListView");
            keyClick(Qt.Key_Tab); // over the switch into the table
            keyClick(Qt.Key_Tab);
            verify(here(line(1), "InventoryLine_").visualFocus);
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Space);
            compare(list.count, 2310);
            verify(list.contentItem.children.length < 60, "made for lines that nobody sees");
            keyClick(Qt.Key_Tab, Qt.ShiftModifier);
            keyClick(Qt.Key_End);
            const last = here(line(2310), "InventoryLine_");
            verify(last.visualFocus);
            fuzzyCompare(last.mapToItem(list, 0, 0).y + last.height, list.height, 1);
            compare(bench.spoken(last).description, "date unknown");
            keyClick(Qt.Key_Return);
            compare(bench.copied[bench.copied.length - 1], "/home/ada/p2310");
            keyClick(Qt.Key_PageUp);
            verify(here(line(2298), "InventoryLine_").activeFocus);
            here("Show fewer", "Button_").forceActiveFocus();
            keyClick(Qt.Key_Space);
            compare(list.count, 8);
            mouseClick(here("Hide details of Codex", "Disclosure_"));
            tryVerify(() => named("Projects of Codex", "QQuickListView") === null);
        }

        function test_wordsStandInTheirPlace(): void {
            const faults = new Set();
            for (const name of ["Cursor", "Codex"])
                if (!here(name, "ConnectedAppRow_").open)
                    mouseClick(here("Show details of " + name, "Disclosure_"));
            for (const [scale, width, height] of [[1, 560, 420], [1.25, 980, 860], [1.5, 560, 420], [1.5, 980, 860], [2, 747, 560]])
                for (const title of ["General", "Connected Apps", "Recording Control", "Local AI Classifier", "Recovery"]) {
                    ThemeSource.textScale = scale;
                    scene.width = width;
                    scene.height = height - 28 * scale;
                    go(title);
                    wait(40);
                    const page = Array.from(face.children).find(child => child instanceof Loader).item;
                    for (let y = 0; y <= page.contentHeight - page.height; y += page.height / 2) {
                        page.contentY = y;
                        wait(20);
                        for (const fault of bench.outOfPlace(face))
                            faults.add(title + " x" + scale + " " + width + ": " + fault);
                    }
                }
            for (const fault of faults)
                console.warn(fault);
            compare(faults.size, 0);
        }

        function test_largerWordsLeaveOneWhereOneWas(): void {
            const line = here("Copy", "Button_");
            line.forceActiveFocus(Qt.TabFocusReason);
            scene.height = 500;
            for (const scale of [1.5, 2, 1]) {
                ThemeSource.textScale = scale;
                tryCompare(line, "height", 32 * scale);
                const top = () => line.mapToItem(face, 0, 0).y;
                tryVerify(() => top() >= 0 && top() + line.height <= 500, 2000, "in sight at " + scale);
                verify(line.activeFocus && line.ringed);
            }
        }

        function test_nothingIsCutOffAtAnyWidth(): void {
            const row = here("Cursor", "ConnectedAppRow_");
            const toggle = here("Cursor", "Switch_");
            const copy = here("Copy", "Button_");
            for (const [width, column] of [[560, 449], [640, 529], [1600, 660], [980, 660]]) {
                scene.width = width;
                wait(0);
                compare(row.width, column - 2);
                compare(toggle.mapToItem(row, 0, 0).x + 36, row.width - 20);
                verify(copy.mapToItem(face, 0, 0).x + copy.width < width);
            }
            verify(bench.press(copy));
            compare(bench.copied[bench.copied.length - 1], "/opt/wendlow-mcp");
        }
    }
}
