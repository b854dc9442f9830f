import QtQuick
import QtTest
import WendlowControls

Item {
    id: scene

    width: 600
    height: 400

TestCase {
    name: "Controls"
    when: windowShown

    function init(): void {
        ThemeSource.dark = false;
        ThemeSource.reduceMotion = false;
    }

    function cleanup(): void {
        compare(bench.warnings().join("\n"), "");
    }

    Component { id: switches; Switch { property int asked: 0; on: false; text: "Recording"; onClicked: asked += 1 } }
    Component { id: buttons; Button { property int asked: 0; text: "Save"; onClicked: asked += 1 } }
    Component { id: chips; Chip { text: "owner" } }
    Component { id: disclosures; Disclosure { text: "Claude Code" } }
    Component { id: checks; CheckRow { width: 200; on: false; text: "owner" } }
    Component { id: choices; ChoiceRow { width: 200; on: false; text: "here" } }
    Component { id: fills; HoverFill { lit: false; shade: "#ff0000" } }
    Component { id: spinners; Spinner {} }
    Component {
        id: pages

        ScrollPage {
            width: 300
            height: 200

            Repeater { model: 20; Button { text: "row " + index } }
        }
    }

    function test_switchAsksAndNeverTurnsByItself(): void {
        const toggle = createTemporaryObject(switches, scene);
        mouseClick(toggle);
        toggle.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Return);
        verify(bench.press(toggle));
        compare(toggle.asked, 4);
        compare(bench.spoken(toggle), { name: "Recording", description: "", checked: false });
        toggle.on = true;
        verify(bench.spoken(toggle).checked);
        toggle.enabled = false;
        mouseClick(toggle);
        verify(bench.press(toggle));
        compare(toggle.asked, 4, "not by a screen reader either");
        compare(bench.spoken(toggle).description, "Working…");
    }

    function test_switchHasItsRingAgainAfterWork(): void {
        for (const [reason, ring] of [[Qt.TabFocusReason, true], [Qt.MouseFocusReason, false]]) {
            const toggle = createTemporaryObject(switches, scene);
            toggle.forceActiveFocus(reason);
            compare(toggle.ringed, ring);
            toggle.enabled = false;
            verify(!toggle.activeFocus);
            toggle.enabled = true;
            verify(toggle.activeFocus);
            compare(toggle.ringed, ring);
        }
    }

    function test_aScreenReaderHearsWhatIsOn_data(): var {
        return [{ tag: "chip", component: chips, by: "open" }, { tag: "disclosure", component: disclosures, by: "open" }, { tag: "switch", component: switches, by: "on" }, { tag: "check box", component: checks, by: "on" }, { tag: "choice", component: choices, by: "on" }];
    }
    function test_aScreenReaderHearsWhatIsOn(data: var): void {
        for (const [atFirst, heard] of [[true, false], [false, false], [true, true], [false, true]]) {
            bench.read(heard);
            const control = createTemporaryObject(data.component, scene, { [data.by]: atFirst });
            bench.read(true);
            compare(bench.spoken(control).checked, atFirst, "also where a reader comes later");
            control.clicked.connect(() => control[data.by] = !control[data.by]);
            for (const on of [!atFirst, atFirst]) {
                mouseClick(control);
                compare(control[data.by], on);
                compare(bench.spoken(control).checked, on);
            }
            mouseClick(control);
            control[data.by] = atFirst;
            compare(bench.spoken(control).checked, atFirst, "turned by something else");
            control.destroy();
        }
    }

    function test_busyButtonCannotBePressed(): void {
        const button = createTemporaryObject(buttons, scene);
        const narrow = button.width;
        mouseClick(button);
        button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        verify(bench.press(button));
        compare(button.asked, 3);
        button.busy = true;
        tryCompare(button, "width", narrow + 22, 1000, "the spinner stands before the word");
        mouseClick(button);
        compare(button.asked, 3);
    }

    function test_litAtOnceAndFadingOut(): void {
        const fill = createTemporaryObject(fills, scene);
        fill.lit = true;
        compare(fill.color, "#ff0000");
        fill.lit = false;
        verify(fill.color.a > 0.9, "it fades");
        tryVerify(() => fill.color.a === 0);
        ThemeSource.reduceMotion = true;
        fill.lit = true;
        fill.lit = false;
        compare(fill.color.a, 0);
    }

    function test_spinnerStandsStillWithReducedMotion(): void {
        const turning = createTemporaryObject(spinners, scene).children[1];
        tryVerify(() => turning.rotation > 0);
        ThemeSource.reduceMotion = true;
        const still = turning.rotation;
        wait(50);
        compare(turning.rotation, still);
    }

    function test_pageFollowsTheFocus(): void {
        const page = createTemporaryObject(pages, scene);
        const rows = page.contentItem.children[0].children;
        for (const at of [19, 0, 10]) {
            rows[at].forceActiveFocus(Qt.TabFocusReason);
            const top = rows[at].mapToItem(page, 0, 0).y;
            verify(top >= 0 && top + rows[at].height <= page.height, "row " + at + " at " + top);
        }
        keyClick(Qt.Key_End);
        compare(page.contentY, page.contentHeight - page.height);
        keyClick(Qt.Key_Home);
        compare(page.contentY, 0);
    }

    function test_symbolsHaveDrawings(): void {
        for (const name of ["terminal", "cursorarrow.rays", "chevron.left.forwardslash.chevron.right", "slider.horizontal.3", "record.circle", "powerplug", "cpu.fill", "key.fill", "hand.raised.fill", "lock.shield.fill", "scroll.fill", "copy", "check", "right", "down", "warn", "refuse", "ok", "lock", "clear"])
            verify(bench.ink(name) > 3, name);
        compare(bench.ink("no.such.symbol"), -1);
        verify(bench.ink("clear") > bench.ink("dot") && bench.ink("clear") < 40, "filled, with clear holes");
    }

    function luminance(c: color): real {
        const part = v => v <= 0.03928 ? v / 12.92 : Math.pow((v + 0.055) / 1.055, 2.4);
        return 0.2126 * part(c.r) + 0.7152 * part(c.g) + 0.0722 * part(c.b);
    }
    function contrast(words: color, ground: color): real {
        const a = luminance(words), b = luminance(ground);
        return (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
    }
    function test_wordsCanBeRead_data(): var {
        return [{ tag: "light", dark: false }, { tag: "dark", dark: true }];
    }
    function test_wordsCanBeRead(data: var): void {
        ThemeSource.dark = data.dark;
        const hovered = Qt.tint(Theme.ground, Theme.hover), pressed = Qt.tint(Theme.ground, Theme.pressed);
        const open = Qt.tint(Theme.sidebar, Theme.here);
        const pairs = [
            ["text", Theme.text, [Theme.ground, Theme.surface, Theme.sidebar, hovered, pressed, open, Theme.accentSoft, Theme.warningFill, Theme.refusalFill]],
            ["second", Theme.textSecond, [Theme.ground, Theme.surface]],
            ["second on tint", Theme.textSecondOnTint, [Theme.ground, Theme.surface, Theme.sidebar, Theme.well, hovered, pressed, Theme.accentSoft]],
            ["accent", Theme.accent, [Theme.ground, Theme.surface, hovered, pressed]],
            ["on accent", Theme.inkOnAccent, [Theme.accent, Theme.accentHover]],
            ["tooltip", Theme.ground, [Theme.text]],
            ["destructive", Theme.inkOnDestructive, [Theme.destructive]]
        ];
        for (const [what, words, grounds] of pairs)
            for (const ground of grounds)
                verify(contrast(words, ground) >= 4.5, what + " on " + ground + ": " + contrast(words, ground));
    }
}
}
