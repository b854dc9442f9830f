pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorMoments

// One moment large: its picture with what can be done with it, or its words.
Lightbox {
    id: box

    required property MomentLightbox lightbox
    required property TileRoom tiles

    readonly property int foot: Math.max(Theme.buttonHeight, Theme.lines[Label.Role.Strong] + Theme.lines[Label.Role.Small]) + 2 * Theme.space12
    // Around the picture, so that the panel's round corners cut nothing off.
    readonly property int mat: Theme.space12
    readonly property int widest: (box.overlay?.width ?? 980) - 2 * Theme.space48 - 2 * box.mat
    readonly property int tallest: (box.overlay?.height ?? 860) - 2 * Theme.space48 - box.mat - box.foot
    // As large as fits, and no more than three times what there is of it.
    readonly property size fitting: {
        const own = picture.naturalSize.width > 0 ? picture.naturalSize : Qt.size(320, 200);
        const scale = Math.min(box.widest / own.width, box.tallest / own.height, 3);
        return Qt.size(Math.max(360, Math.round(own.width * scale)), Math.round(own.height * scale));
    }

    title: box.lightbox.title.length > 0 ? box.lightbox.title : qsTr("Moment")
    open: box.lightbox.open
    wanted: box.lightbox.textCard ? Qt.size(Theme.scaled(560), Math.min(Theme.scaled(520), session.needed)) : Qt.size(box.fitting.width + 2 * box.mat + 2, box.fitting.height + box.mat + box.foot + 2)
    scrolls: box.lightbox.textCard ? story : null
    onEscaped: box.lightbox.dismiss()
    onClosed: box.lightbox.wentAway()

    // A refusal takes its room from the picture.
    Rectangle {
        id: ground
        x: box.mat
        y: box.mat
        width: parent.width - 2 * box.mat
        height: parent.height - box.mat - box.foot - (strip.visible ? strip.height + Theme.space12 : 0)
        visible: !box.lightbox.textCard
        radius: Theme.radiusTag
        color: picture.filled ? "transparent" : box.lightbox.shade > 0 ? Qt.hsla(0.55, 0.06, box.lightbox.shade, 1) : Theme.well

        TilePicture {
            id: picture

            readonly property real ratio: picture.naturalSize.width > 0 ? picture.naturalSize.width / picture.naturalSize.height : parent.width / Math.max(1, parent.height)

            anchors.centerIn: parent
            width: Math.min(parent.width, parent.height * ratio)
            height: Math.min(parent.height, parent.width / ratio)
            whole: true
            room: box.tiles
            key: box.lightbox.key
            Accessible.role: Accessible.Graphic
            Accessible.name: box.title
        }
        EmptyState {
            anchors.centerIn: parent
            width: parent.width - 2 * Theme.space24
            visible: box.lightbox.pictureWords.length > 0 && !picture.filled
            busy: box.lightbox.waiting
            iconName: "stack"
            text: box.lightbox.pictureWords
        }
    }
    Strip {
        id: strip
        x: Theme.space16
        anchors.top: ground.bottom
        anchors.topMargin: Theme.space12
        width: parent.width - 2 * x
        visible: box.lightbox.refusal.length > 0
        tone: Strip.Tone.Refusal
        text: box.lightbox.refusal
    }
    Item {
        id: foot
        anchors.bottom: parent.bottom
        width: parent.width
        height: box.foot
        visible: !box.lightbox.textCard
        opacity: box.progress

        Column {
            anchors.verticalCenter: parent.verticalCenter
            x: Theme.space16
            width: buttons.x - x - Theme.space12

            Label {
                id: name
                width: parent.width
                role: Label.Role.Strong
                text: box.lightbox.title
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft

                HoverHandler { id: pointer }
                Hint {
                    text: name.text
                    wanted: pointer.hovered && name.truncated
                }
            }
            Label {
                id: when
                width: parent.width
                role: Label.Role.Small
                text: box.lightbox.when
                color: Theme.textSecond
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft

                HoverHandler { id: whenPointer }
                Hint {
                    text: when.text
                    wanted: whenPointer.hovered && when.truncated
                }
            }
        }
        Row {
            id: buttons
            anchors.verticalCenter: parent.verticalCenter
            x: parent.width - width - Theme.space16
            spacing: Theme.space8

            Button {
                visible: box.lightbox.ready
                kind: Button.Kind.Quiet
                text: qsTr("Copy picture")
                onClicked: if (box.lightbox.copyPicture())
                    Speech.say(qsTr("Copied"))
            }
            Button {
                visible: box.lightbox.ready
                working: box.lightbox.opening
                text: qsTr("Open")
                hint: qsTr("Shows the picture in your own viewer")
                onClicked: box.lightbox.openPicture()
            }
            Button {
                kind: Button.Kind.Quiet
                text: qsTr("Close")
                onClicked: box.lightbox.dismiss()
            }
        }
    }

    // The words of a session, laid out once for where they will stand.
    Item {
        id: session

        readonly property real needed: story.y + told.height + 2 * Theme.space24 + close.height + Theme.space12

        width: Math.min(Theme.scaled(560), (box.overlay?.width ?? 980) - 2 * Theme.space32) - 2
        height: parent.height
        visible: box.lightbox.textCard
        opacity: box.progress

        Icon {
            x: Theme.space24
            y: Theme.space24 + Math.round((Theme.lines[Label.Role.Small] - 14) / 2)
            size: 14
            name: "terminal"
            color: Theme.textSecond
        }
        Label {
            id: badge
            x: Theme.space24 + 20
            y: Theme.space24
            width: parent.width - x - Theme.space24
            role: Label.Role.Small
            text: box.lightbox.badge + " · " + box.lightbox.when
            color: Theme.textSecond
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
        }
        Label {
            id: heading
            x: Theme.space24
            anchors.top: badge.bottom
            anchors.topMargin: Theme.space8
            width: parent.width - 2 * x
            role: Label.Role.Heading
            text: box.lightbox.title
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.role: Accessible.Heading
        }
        Flickable {
            id: story
            anchors.top: heading.bottom
            anchors.topMargin: Theme.space12
            anchors.bottom: close.top
            anchors.bottomMargin: Theme.space12
            width: parent.width
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            contentHeight: told.height

            T.ScrollBar.vertical: ScrollBar {}

            Column {
                id: told
                x: Theme.space24
                width: story.width - 2 * x
                spacing: Theme.space16

                Label {
                    width: parent.width
                    text: box.lightbox.body
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignLeft
                }
                Label {
                    width: parent.width
                    visible: box.lightbox.files.length > 0
                    role: Label.Role.Small
                    text: box.lightbox.files
                    color: Theme.textSecond
                    wrapMode: Text.WrapAnywhere
                    horizontalAlignment: Text.AlignLeft
                }
            }
        }
        Button {
            id: close
            x: parent.width - width - Theme.space24
            y: parent.height - height - Theme.space24
            text: qsTr("Close")
            onClicked: box.lightbox.dismiss()
        }
    }
}
