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
        function here(name, kind) {
            tryVerify(() => named(name, kind) !== null, 5000, name);
            return named(name, kind);
        }

        function init(): void {
            ThemeSource.reduceMotion = true;
            bench.root.select("Connected Apps");
        }

        function test_arrowsMoveThroughThePanes(): void {
            here("Connected Apps", "SidebarItem_").forceActiveFocus(Qt.TabFocusReason);
            bench.root.select("connected");
            compare(bench.root.selection, "Connected Apps", "there is no such pane");
            for (const title of ["Recording Control", "Local AI Classifier", "Recovery", "Recovery"]) {
                keyClick(Qt.Key_Down);
                compare(bench.root.selection, title);
                verify(here(title, "SidebarItem_").activeFocus);
                verify(here(title, "SidebarItem_").ringed);
            }
            keyClick(Qt.Key_Home);
            compare(bench.root.selection, "General");
            here("General", "Label_");
            bench.root.select("Recovery");
            verify(here("Recovery", "SidebarItem_").activeFocus);
            verify(!here("Recovery", "SidebarItem_").ringed, "no key brought the focus here");
            mouseClick(here("Connected Apps", "SidebarItem_"));
            verify(!here("Connected Apps", "SidebarItem_").ringed);
            here("Give your AI superpowers", "Label_");
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
            mouseClick(here("Hide notes of Cursor", "Disclosure_"));
            tryVerify(() => named(path, "") === null);
            tryVerify(() => row.height < tall);
            keyClick(Qt.Key_Return);
            here(path, "");
            compare(named("Show notes of Codex", "Disclosure_"), null, "nothing to show, nothing to press");
        }

        function test_nothingIsCutOffAtAnyWidth(): void {
            const row = here("Cursor", "ConnectedAppRow_");
            const toggle = here("Cursor", "Switch_");
            const copy = here("Copy", "Button_");
            for (const width of [640, 1600, 980]) {
                scene.width = width;
                wait(0);
                compare(row.width, Math.min(660, width - 224 - 96) - 2);
                compare(toggle.mapToItem(row, 0, 0).x + 36, row.width - 20);
                verify(copy.mapToItem(face, 0, 0).x + copy.width < width);
            }
            verify(bench.press(copy));
            compare(bench.copied[bench.copied.length - 1], "/opt/wendlow-mcp");
        }
    }
}
