import QtQuick
import WendlowControls

// A path on one line, cut in its middle where it does not fit; the whole of it is in the tooltip. Other words
// can tell more there always.
Label {
    id: path

    property string whole: path.text
    property bool always: false

    elide: Text.ElideMiddle

    HoverHandler { id: pointer }
    Hint {
        text: path.whole
        wanted: pointer.hovered && (path.always || path.truncated)
    }
}
