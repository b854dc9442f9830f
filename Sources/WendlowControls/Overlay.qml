import QtQuick
import QtQuick.Templates as T
import WendlowControls

// Something that is looked at by itself for a while: a panel over a part of the window, the rest of which stays as
// it is. A press outside closes it, as Escape does.
ModalPanel {
    id: overlay

    // What the scrim covers, and in the middle of which the panel stands.
    required property Item over
    property int widest: 636

    readonly property int edge: Math.min(Theme.space48, Math.round(overlay.scrimmed.height / 16))

    closePolicy: T.Popup.CloseOnPressOutside
    scrimmed: {
        if (overlay.roof === null || overlay.over === null)
            return Qt.rect(0, 0, 0, 0);
        // It moves with the window's size alone.
        const whole = Qt.size(overlay.roof.width, overlay.roof.height);
        const corner = overlay.over.mapToItem(overlay.roof, 0, 0);
        return Qt.rect(corner.x, corner.y, Math.min(overlay.over.width, whole.width), overlay.over.height);
    }
    place: {
        const ground = overlay.scrimmed;
        const width = Math.min(Theme.scaled(overlay.widest), ground.width - 2 * Theme.space24);
        return Qt.rect(Math.round(ground.x + (ground.width - width) / 2), ground.y + overlay.edge, width, ground.height - 2 * overlay.edge);
    }
}
