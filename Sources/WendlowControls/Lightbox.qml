pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// One thing shown large over the whole window, which is dark behind it. It opens from where the thing stood
// and closes back to there. The focus goes in, stays in, and is given back when it has gone; the arrow keys
// do nothing. Its owner opens and closes it.
Item {
    id: lightbox

    required property string title
    required property bool open
    // What it opens from; none, or one that is not to be seen: it is there at once.
    property Item origin: null
    // As large as it would like to be.
    property size wanted: Qt.size(640, 480)

    // What the page keys, Home and End scroll; none: nothing.
    property Flickable scrolls: null

    default property alias content: face.content

    // Escape was pressed, or a place beside it: it is to be closed.
    signal escaped
    signal closed

    // Kept while the window goes: a popup that loses its place then takes the keys from a window that is half gone.
    property Item overlay: null
    readonly property Item windows: T.Overlay.overlay
    onWindowsChanged: if (lightbox.windows !== null)
        lightbox.overlay = lightbox.windows

    // 0: where it came from; 1: open.
    property real progress: 0
    readonly property bool settled: lightbox.progress === 1
    property rect from

    // Where it stands when it is open.
    readonly property rect goal: {
        const room = lightbox.overlay ? Qt.size(lightbox.overlay.width - 2 * Theme.space32, lightbox.overlay.height - 2 * Theme.space32) : lightbox.wanted;
        const width = Math.round(Math.min(room.width, lightbox.wanted.width));
        const height = Math.round(Math.min(room.height, lightbox.wanted.height));
        return Qt.rect(Math.round((room.width - width) / 2) + Theme.space32, Math.round((room.height - height) / 2) + Theme.space32, width, height);
    }

    function between(from: real, to: real): real {
        return from + (to - from) * lightbox.progress;
    }
    function look(): void {
        const item = lightbox.origin;
        lightbox.from = item && item.visible && lightbox.overlay ? item.mapToItem(lightbox.overlay, Qt.rect(0, 0, item.width, item.height)) : Qt.rect(lightbox.goal.x, lightbox.goal.y, lightbox.goal.width, lightbox.goal.height);
    }
    function follow(): void {
        lightbox.look();
        motion.stop();
        if (Theme.disclosure > 0) {
            motion.to = lightbox.open ? 1 : 0;
            motion.start();
        } else {
            lightbox.progress = lightbox.open ? 1 : 0;
        }
    }
    onOpenChanged: lightbox.follow()
    Component.onCompleted: if (lightbox.open)
        lightbox.follow()

    NumberAnimation {
        id: motion
        target: lightbox
        property: "progress"
        duration: Theme.disclosure
        easing.type: Easing.OutQuad
    }
    ModalPopup {
        parent: lightbox.overlay
        open: lightbox.open
        width: lightbox.overlay ? lightbox.overlay.width : 0
        height: lightbox.overlay ? lightbox.overlay.height : 0
        visible: (lightbox.open || lightbox.progress > 0) && lightbox.overlay !== null
        onGone: lightbox.closed()

        // The dark comes and goes with what is shown.
        T.Overlay.modal: Item {}
        contentItem: lightbox.stage
    }
    // As a property it has no parent, and the popup takes it in.
    readonly property Item stage: FocusScope {
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: lightbox.title
        Accessible.focusable: true

        Keys.onEscapePressed: lightbox.escaped()
        Keys.onPressed: event => {
            const page = lightbox.scrolls;
            const steps = page === null ? {} : {
                [Qt.Key_PageUp]: page.contentY - page.height + 40,
                [Qt.Key_PageDown]: page.contentY + page.height - 40,
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: page.contentHeight
            };
            if (event.key in steps)
                page.contentY = Math.max(0, Math.min(steps[event.key], page.contentHeight - page.height));
            event.accepted = event.key in steps || [Qt.Key_Left, Qt.Key_Right, Qt.Key_Up, Qt.Key_Down].includes(event.key);
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.stage
            opacity: lightbox.progress

            TapHandler { onTapped: lightbox.escaped() }
        }
        LightboxFace {
            id: face
            x: Math.round(lightbox.between(lightbox.from.x, lightbox.goal.x))
            y: Math.round(lightbox.between(lightbox.from.y, lightbox.goal.y))
            width: Math.round(lightbox.between(lightbox.from.width, lightbox.goal.width))
            height: Math.round(lightbox.between(lightbox.from.height, lightbox.goal.height))

            // What is beside the words and the picture is no way out.
            TapHandler {}
        }
    }
}
