import QtQuick
import QtTest

// A test that works the window by key and hears it as a screen reader does.
TestCase {
    id: base

    required property Item view

    when: windowShown

    function cleanup(): void {
        compare(bench.warnings().join("\n"), "");
    }
    // Into this world, with the keys at the window's beginning.
    function enter(world) {
        bench.world(world);
        wait(0);
        view.forceActiveFocus();
    }
    function focused() {
        return base.Window.activeFocusItem;
    }
    // The keys of these names, one after the other.
    function keys(names) {
        for (const name of names.split(" "))
            keyClick(Qt["Key_" + name]);
    }
    function write(text) {
        for (const letter of text)
            keyClick(letter);
    }
    // The lines of what a screen reader finds that begin so.
    function said(role) {
        return bench.spoken(view).filter(line => line.startsWith(role + " ")).map(line => line.slice(role.length + 1));
    }
    function says(role, name) {
        tryVerify(() => said(role).includes(name), 2000, role + " " + name + " in " + bench.spoken(view).join("\n"));
    }
    function everythingIsNamed() {
        for (const line of bench.spoken(view))
            verify(!/^(PageTab|ListItem|Button|CheckBox|RadioButton|EditableText|MenuItem|PopupMenu|Dialog|List) \*?$/.test(line), "without a name: " + line);
    }
}
