import QtQuick

// Words that can be selected with the pointer and copied, in one of the roles of the type scale.
TextEdit {
    id: words

    // In Qt's rich text, in which everything of the words themselves is escaped.
    required property string markup
    // What a screen reader says.
    required property string spoken
    property int role: Label.Role.Body
    property int line: Theme.lines[words.role]

    color: Theme.text
    font: Theme.fonts[words.role]
    selectionColor: Theme.accentMid
    selectedTextColor: Theme.text
    readOnly: true
    selectByMouse: true
    // Reached by the pointer alone: who works by key copies the whole from the row.
    activeFocusOnTab: false
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

    HoverHandler { cursorShape: Qt.IBeamCursor }
}
