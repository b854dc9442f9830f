pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorMoments

// One moment among the others: its picture with a line below it, or a card of words. A picture that is still
// to come is a quiet card of its size, and fades in once. So are words while the page rushes by, but for the
// fading.
FocusScope {
    id: cell

    required property MomentCellModel content
    required property int pictureHeight
    // Wide enough for any time, so that the title beside it is laid out once.
    required property int clockWidth
    required property TileRoom tiles
    property bool ringed: false

    readonly property bool textCard: cell.content.textCard

    signal pressed

    visible: cell.content.shown

    Accessible.role: Accessible.ListItem
    Accessible.name: cell.content.spoken
    Accessible.description: cell.content.body
    Accessible.focusable: true
    Accessible.onPressAction: cell.pressed()

    Rectangle {
        id: card

        readonly property real shade: cell.content.shade

        width: parent.width
        height: cell.textCard ? cell.height : cell.pictureHeight
        radius: Theme.radiusButton
        color: cell.textCard ? Theme.surface : card.shade > 0 ? Qt.hsla(0.55, 0.06, Theme.dark ? card.shade * 0.6 : 0.35 + card.shade * 0.6, 1) : Theme.well
    }
    TilePicture {
        id: picture
        width: parent.width
        height: cell.pictureHeight
        visible: !cell.textCard
        room: cell.tiles
        key: cell.content.key
        onArrived: fade.restart()
        onKeyChanged: if (fade.running) {
            fade.stop();
            picture.opacity = 1;
        }

        NumberAnimation {
            id: fade
            target: picture
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.disclosure
            easing.type: Easing.OutQuad
        }
    }
    Rectangle {
        anchors.fill: card
        radius: Theme.radiusButton
        color: "transparent"
        border.width: Theme.strokeHairline
        border.color: pointer.hovered ? Theme.edge : Theme.hairline
    }
    FocusRing {
        anchors.fill: card
        anchors.margins: -reach
        shown: cell.ringed
        around: Theme.radiusButton
    }

    // Below a picture.
    Label {
        id: caption
        y: cell.pictureHeight + 8
        width: parent.width - cell.clockWidth - Theme.space8
        visible: cell.content.told && !cell.textCard
        role: Label.Role.Small
        text: cell.content.caption
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: clock
        x: parent.width - width - (cell.textCard ? 15 : 0)
        y: cell.textCard ? 13 : cell.pictureHeight + 8
        width: cell.clockWidth
        visible: cell.content.told
        role: Label.Role.Small
        text: cell.content.time
        color: Theme.textSecond
        horizontalAlignment: Text.AlignRight
        Accessible.ignored: true
    }

    // On a card; most cells never show one.
    Once {
        id: story

        wanted: cell.content.told && cell.textCard

        MomentCard {
            anchors.fill: card
            visible: cell.content.told && cell.textCard
            badge: cell.content.badge
            title: cell.content.title
            body: cell.content.body
            files: cell.content.files
            clockWidth: cell.clockWidth
        }
    }
    HoverHandler { id: pointer }
    TapHandler { onTapped: cell.pressed() }
    Hint {
        text: cell.content.tip
        wanted: pointer.hovered && (cell.textCard ? cell.content.files.length > 0 || (story.itemAt(0) as MomentCard)?.cut === true : caption.truncated)
    }
}
