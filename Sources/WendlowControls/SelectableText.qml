import QtQuick
import WendlowControls

// Words that can be selected with the pointer and copied, in one of the roles of the type scale.
TextEdit {
    id: words

    // In Qt's rich text, in which everything of the words themselves is escaped.
    required property string markup
    // What a screen reader says.
    required property string spoken
    property int role: Label.Role.Body
    property int line: Theme.lines[words.role]
    // It can be reached by key, and all of it selected and copied there.
    property bool tabStop: false

    color: Theme.text
    font: Theme.fonts[words.role]
    selectionColor: Theme.accentMid
    selectedTextColor: Theme.text
    readOnly: true
    selectByMouse: true
    // The keys move the page that it stands on, and no cursor that nobody sees.
    activeFocusOnTab: words.tabStop
    wrapMode: TextEdit.Wrap
    horizontalAlignment: TextEdit.AlignLeft
    textFormat: TextEdit.RichText
    text: "<p style=\"margin:0;line-height:" + words.line + "px\">" + words.markup + "</p>"
    renderType: Text.NativeRendering

    Accessible.role: Accessible.StaticText
    Accessible.name: words.spoken

    // What is selected looks so for as long as somebody could mean it.
    onActiveFocusChanged: if (!words.activeFocus)
        words.deselect()

    Keys.onPressed: event => {
        event.accepted = words.tabStop && (event.matches(StandardKey.SelectAll) || event.matches(StandardKey.Copy));
        if (event.accepted && event.matches(StandardKey.SelectAll))
            words.selectAll();
        else if (event.accepted)
            words.copy();
    }

    FocusRing {
        anchors.margins: -6
        shown: words.tabStop && words.activeFocus && LastInput.byKey
        inside: true
    }
    HoverHandler { cursorShape: Qt.IBeamCursor }
}
