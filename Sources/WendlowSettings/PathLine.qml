import QtQuick
import WendlowControls

// A path on one line, cut in its middle where it does not fit; the whole of it is in the tooltip.
Label {
    id: path

    property string whole: path.text

    elide: Text.ElideMiddle

    HoverHandler { id: pointer }
    Hint {
        text: path.whole
        wanted: pointer.hovered && path.truncated
    }
}
