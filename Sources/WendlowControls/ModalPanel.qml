pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A panel over a window, behind which a scrim lies. Its owner opens and closes it.
Item {
    id: modal

    // What it is, to a screen reader.
    required property string name
    required property bool open
    // In the window: what the scrim covers, and where the panel stands.
    required property rect scrimmed
    required property rect place
    property int closePolicy: T.Popup.NoAutoClose

    default property alias inside: inner.data

    // It is to be closed: Escape was pressed, or what `closePolicy` says.
    signal escaped
    signal closed

    // Kept while the window goes: a popup that loses its place then takes the keys from a window that is half gone.
    property Item roof: null
    readonly property Item overlay: T.Overlay.overlay
    onOverlayChanged: if (modal.overlay !== null)
        modal.roof = modal.overlay

    ModalPopup {
        parent: modal.roof
        open: modal.open
        x: modal.place.x
        y: modal.place.y
        width: modal.place.width
        height: modal.place.height
        visible: modal.open && modal.roof !== null
        closePolicy: modal.closePolicy
        onAboutToHide: if (modal.open && modal.closePolicy !== T.Popup.NoAutoClose)
            modal.escaped()
        onGone: modal.closed()

        T.Overlay.modal: Item {
            Rectangle {
                x: modal.scrimmed.x
                y: modal.scrimmed.y
                width: modal.scrimmed.width
                height: modal.scrimmed.height
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
        contentItem: modal.panel
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
        Accessible.name: modal.name

        Keys.onEscapePressed: modal.escaped()

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
