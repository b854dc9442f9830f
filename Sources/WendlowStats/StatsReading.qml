import QtQuick
import WendlowControls

// Something that is read: a stop of the tab key, with a tooltip that tells all of it.
Item {
    id: reading

    required property string spoken
    property string tip: reading.spoken

    readonly property bool ringed: reading.activeFocus && LastInput.byKey

    activeFocusOnTab: true

    Accessible.role: Accessible.ListItem
    Accessible.name: reading.spoken
    Accessible.focusable: true

    FocusRing {
        anchors.margins: -2
        shown: reading.ringed
        inside: true
    }
    HoverHandler { id: pointer }
    Hint {
        text: reading.tip
        wanted: pointer.hovered || reading.ringed
        leading: true
    }
}
