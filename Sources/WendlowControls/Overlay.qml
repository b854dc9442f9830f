pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// Something that is looked at by itself for a while: a panel over a part of the window, the rest of which lies
// behind a scrim. The focus goes in, to what asks for it there, stays in, and is given back when the panel has
// gone. Its owner opens and closes it.
Item {
    id: overlay

    // What it is, to a screen reader.
    required property string name
    required property bool open
    // What the scrim covers, and in the middle of which the panel stands.
    required property Item over
    property int widest: 636

    default property alias content: inner.data

    // Escape was pressed, or something outside of the panel: it is to be closed.
    signal escaped
    signal closed

    property Item before: null
    readonly property Item roof: T.Overlay.overlay
    // Of what it is over, in the window.
    readonly property rect place: {
        if (overlay.roof === null || overlay.over === null)
            return Qt.rect(0, 0, 0, 0);
        // It moves with the window's size alone.
        const whole = Qt.size(overlay.roof.width, overlay.roof.height);
        const corner = overlay.over.mapToItem(overlay.roof, 0, 0);
        return Qt.rect(corner.x, corner.y, Math.min(overlay.over.width, whole.width), overlay.over.height);
    }
    readonly property int edge: Math.min(Theme.space48, Math.round(overlay.place.height / 16))

    function giveBack(): void {
        if (overlay.open)
            return;
        if (overlay.before !== null && overlay.before.visible)
            overlay.before.forceActiveFocus(Qt.PopupFocusReason);
        overlay.before = null;
        overlay.closed();
    }

    // What was pressed instead may take the focus first.
    Timer {
        id: back
        interval: 0
        onTriggered: overlay.giveBack()
    }
    T.Popup {
        id: popup

        parent: overlay.roof
        width: Math.min(Theme.scaled(overlay.widest), overlay.place.width - 2 * Theme.space24)
        height: overlay.place.height - 2 * overlay.edge
        x: Math.round(overlay.place.x + (overlay.place.width - popup.width) / 2)
        y: overlay.place.y + overlay.edge
        padding: 0
        modal: true
        focus: true
        visible: overlay.open && overlay.roof !== null
        closePolicy: T.Popup.CloseOnPressOutside
        onAboutToShow: overlay.before = overlay.Window.activeFocusItem
        onAboutToHide: if (overlay.open)
            overlay.escaped()
        onClosed: back.start()

        T.Overlay.modal: Item {
            Rectangle {
                x: overlay.place.x
                y: overlay.place.y
                width: overlay.place.width
                height: overlay.place.height
                color: Theme.scrim
            }

            Behavior on opacity {
                enabled: Theme.disclosure > 0

                NumberAnimation {
                    duration: Theme.disclosure
                    easing.type: Easing.OutQuad
                }
            }
        }
        enter: Theme.disclosure > 0 ? rising : null
        exit: Theme.disclosure > 0 ? fading : null
        contentItem: overlay.panel
    }
    Transition {
        id: rising

        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.disclosure
            easing.type: Easing.OutQuad
        }
        NumberAnimation {
            target: rise
            property: "y"
            from: 8
            to: 0
            duration: Theme.disclosure
            easing.type: Easing.OutQuad
        }
    }
    Transition {
        id: fading

        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.disclosure
            easing.type: Easing.OutQuad
        }
    }
    // As a property it has no parent, and the popup takes it in.
    readonly property Item panel: FocusScope {
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: overlay.name

        Keys.onEscapePressed: overlay.escaped()

        transform: Translate { id: rise }

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
            radius: Theme.radiusCard
            border.width: Theme.strokeHairline
            border.color: Theme.edge
        }
        FocusScope {
            id: inner
            anchors.fill: parent
            focus: true
        }
    }
}
