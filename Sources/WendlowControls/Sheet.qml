pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// What has to be answered before anything else in the window: a panel in its middle, the rest behind a
// scrim. The focus goes in, to what asks for it there, stays in, and is given back when the panel has gone.
// Its owner opens and closes it; what is too tall for the window scrolls between its title and its buttons.
Item {
    id: sheet

    required property string title
    required property bool open

    default property alias content: page.content
    property alias buttons: foot.data

    // Escape was pressed: it is to be closed.
    signal escaped
    signal closed

    property Item before: null
    readonly property Item overlay: T.Overlay.overlay

    function giveBack(): void {
        if (sheet.open)
            return;
        if (sheet.before !== null && sheet.before.visible)
            sheet.before.forceActiveFocus(LastInput.reason);
        sheet.before = null;
        sheet.closed();
    }

    // What was pressed instead may take the focus first.
    Timer {
        id: back
        interval: 0
        onTriggered: sheet.giveBack()
    }
    T.Popup {
        id: popup

        readonly property int tallest: sheet.overlay ? sheet.overlay.height - 2 * Theme.space32 : 0

        parent: sheet.overlay
        x: sheet.overlay ? Math.round((sheet.overlay.width - popup.width) / 2) : 0
        y: sheet.overlay ? Math.round((sheet.overlay.height - popup.height) / 2) : 0
        width: Math.min(Theme.scaled(440), sheet.overlay ? sheet.overlay.width - 2 * Theme.space24 : Infinity)
        height: Math.min(head.height + page.contentHeight + foot.height + 3 * Theme.space24, popup.tallest)
        padding: 0
        modal: true
        focus: true
        visible: sheet.open && sheet.overlay !== null
        closePolicy: T.Popup.NoAutoClose
        // The panel is the dialog to a screen reader. What the template puts around it would be another, of no name.
        Component.onCompleted: sheet.panel.parent.Accessible.ignored = true
        onAboutToShow: sheet.before = sheet.Window.activeFocusItem
        onClosed: back.start()

        T.Overlay.modal: Rectangle {
            color: Theme.scrim

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
        contentItem: sheet.panel
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
        Accessible.name: sheet.title

        Keys.onEscapePressed: sheet.escaped()

        transform: Translate { id: rise }

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
            radius: Theme.radiusCard
            border.width: Theme.strokeHairline
            border.color: Theme.edge
        }
        Label {
            id: head
            x: Theme.space24
            y: Theme.space24
            width: parent.width - 2 * x
            role: Label.Role.Heading
            text: sheet.title
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.role: Accessible.Heading

            HoverHandler { id: pointer }
            Hint {
                text: sheet.title
                wanted: pointer.hovered && head.truncated
            }
        }
        ScrollPage {
            id: page
            anchors.top: head.bottom
            anchors.topMargin: Theme.space12
            anchors.bottom: foot.top
            anchors.bottomMargin: Theme.space12
            width: parent.width
            columnWidth: parent.width
            sideMargin: Theme.space24
            above: Theme.space12
            below: Theme.space12
        }
        Row {
            id: foot
            anchors.right: parent.right
            anchors.rightMargin: Theme.space24
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.space24
            spacing: Theme.space12
        }
    }
}
