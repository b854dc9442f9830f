pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorMoments

// One moment among the others: its picture with a line below it, or a card of words. A picture that is still
// to come is a quiet card of its size, and fades in once.
FocusScope {
    id: cell

    required property bool shown
    required property int place
    required property int column
    required property real rowTop
    required property bool current
    required property string title
    required property string time
    required property string key
    required property real shade
    required property bool textCard
    required property string badge
    required property string body
    required property string files
    required property string filesTip

    required property int pictureHeight
    required property TileRoom tiles
    property bool ringed: false

    signal pressed

    visible: cell.shown

    Accessible.role: Accessible.ListItem
    Accessible.name: (cell.textCard ? cell.badge + ", " : "") + (cell.title.length > 0 ? cell.title + ", " : "") + cell.time
    Accessible.description: cell.textCard ? cell.body : ""
    Accessible.focusable: true
    Accessible.onPressAction: cell.pressed()

    Rectangle {
        id: card
        width: parent.width
        height: cell.textCard ? cell.height : cell.pictureHeight
        radius: Theme.radiusButton
        color: cell.textCard ? Theme.surface : cell.shade > 0 ? Qt.hsla(0.55, 0.06, Theme.dark ? cell.shade * 0.6 : 0.35 + cell.shade * 0.6, 1) : Theme.well
    }
    TilePicture {
        id: picture
        width: parent.width
        height: cell.pictureHeight
        visible: !cell.textCard
        room: cell.tiles
        key: cell.key
        onArrived: fade.restart()
        onKeyChanged: {
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
        width: parent.width - clock.width - Theme.space8
        visible: !cell.textCard
        role: Label.Role.Small
        text: cell.textCard ? "" : cell.title
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: clock
        x: parent.width - width - (cell.textCard ? 15 : 0)
        y: cell.textCard ? 13 : cell.pictureHeight + 8
        role: Label.Role.Small
        text: cell.time
        color: Theme.textSecond
        Accessible.ignored: true
    }

    // On a card.
    MomentCard {
        id: words
        anchors.fill: card
        visible: cell.textCard
        badge: cell.badge
        title: cell.textCard ? cell.title : ""
        body: cell.body
        files: cell.files
        clockWidth: clock.width
    }
    HoverHandler { id: pointer }
    TapHandler { onTapped: cell.pressed() }
    Hint {
        text: cell.filesTip.length > 0 ? cell.title + "\n" + cell.filesTip : cell.title
        wanted: pointer.hovered && (cell.textCard ? cell.filesTip.length > 0 || words.cut : caption.truncated)
    }
}
