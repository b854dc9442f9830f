import QtQuick

// Words of which one letter may be underlined: the key that stands for them.
Label {
    id: words

    required property string plain
    required property int mark

    function escaped(text: string): string {
        return text.replace(/&/g, "&amp;").replace(/</g, "&lt;");
    }

    textFormat: words.mark < 0 ? Text.PlainText : Text.StyledText
    text: words.mark < 0 ? words.plain : words.escaped(words.plain.slice(0, words.mark)) + "<u>" + words.escaped(words.plain.charAt(words.mark)) + "</u>" + words.escaped(words.plain.slice(words.mark + 1))
    Accessible.ignored: true
}
