import QtQuick
import WendlowControls

// Words of any length that can be selected and copied. They are there as they are reached: what is seen at once,
// and the rest with the frames that follow.
SelectableText {
    id: writing

    required property string said

    markup: ""
    // The words are fed in, and no markup takes their place.
    text: ""
    spoken: writing.said

    // All of them are meant, and not only those that are there.
    onSelectionEndChanged: {
        const from = writing.selectionStart;
        if (feed.done || from === writing.selectionEnd || writing.selectionEnd < writing.length)
            return;
        feed.finish();
        writing.select(from, writing.length);
    }
    Component.onCompleted: {
        feed.start();
        // What comes behind the cursor moves it no longer.
        writing.cursorPosition = 0;
    }

    TextFeed {
        id: feed
        document: writing.textDocument
        text: writing.said
        lineHeight: writing.line
    }
}
