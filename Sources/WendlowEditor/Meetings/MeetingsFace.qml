pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMeetings

// The meetings, the newest first; Return opens one as a transcript that lies over the stage.
FacePage {
    id: page

    required property MeetingsFaceModel face

    first: list.count > 0 ? list : null

    Connections {
        target: page.face
        function onRevealed(row: int): void {
            list.go(row);
        }
        function onTold(words: string): void {
            Speech.say(words);
        }
    }

    PageHead {
        id: head
        x: page.margin
        y: 24
        width: page.column
        title: page.face.title
        trailing: QuietProgress { running: page.trying }
    }
    Label {
        id: count
        x: page.margin
        anchors.top: head.bottom
        anchors.topMargin: Theme.space4
        role: Label.Role.Small
        text: page.face.countLine
        color: Theme.textSecond
    }
    StateStrip {
        id: strip
        x: page.margin
        anchors.top: count.bottom
        anchors.topMargin: strip.visible ? Theme.space16 : 0
        width: page.column
        words: page.face.trouble
        warns: true
        waitingWords: page.face.reading ? page.waitingWords : ""
        trying: page.trying
        onActed: page.triedAgain()
    }
    StageWords {
        x: page.margin
        width: page.column
        anchors.verticalCenter: parent.verticalCenter
        busy: page.face.reading
        iconName: page.face.reading ? "" : "people"
        text: page.face.emptyWords
    }
    Hairline {
        x: page.margin
        y: list.y
        z: 1
        width: page.column
        visible: !list.atYBeginning
    }
    WalkedList {
        id: list

        property int hoverIndex: -1

        function tinted(index: int): bool {
            return index === list.hoverIndex || (index === list.currentIndex && list.activeFocus);
        }

        anchors.top: strip.bottom
        anchors.topMargin: Theme.space12
        anchors.bottom: parent.bottom
        width: parent.width
        topMargin: 0
        rowHeight: Theme.scaled(64)
        reuseItems: true
        focus: true
        model: page.face.rows
        onActivated: index => page.face.openMeeting(index)
        Accessible.name: page.face.title

        delegate: T.ItemDelegate {
            id: row

            required property int index
            required property string title
            required property string under
            required property string number
            required property string tip

            readonly property bool chosen: row.ListView.isCurrentItem && list.activeFocus
            readonly property bool ringed: row.chosen && list.byKey
            readonly property color second: row.chosen || row.hovered ? Theme.textSecondOnTint : Theme.textSecond

            x: page.margin - 12
            width: page.column + 24
            height: list.rowHeight
            hoverEnabled: true
            focusPolicy: Qt.NoFocus
            text: row.title

            Accessible.role: Accessible.ListItem
            Accessible.name: row.title
            Accessible.description: row.under + ", " + row.number
            Accessible.selectable: true
            Accessible.selected: row.chosen
            Accessible.onPressAction: row.clicked()

            onHoveredChanged: {
                if (row.hovered)
                    list.hoverIndex = row.index;
                else if (list.hoverIndex === row.index)
                    list.hoverIndex = -1;
            }
            onPressed: list.claim(row.index)
            onClicked: {
                list.claim(row.index);
                page.face.openMeeting(row.index);
            }
            ListView.onPooled: row.visible = false
            ListView.onReused: row.visible = true

            background: Item {
                Rectangle {
                    y: -1
                    width: parent.width
                    height: parent.height + 1
                    radius: Theme.radiusButton
                    color: row.chosen ? Theme.accentSoft : "transparent"

                    HoverFill {
                        anchors.fill: parent
                        radius: Theme.radiusButton
                        lit: row.hovered && !row.chosen || row.down
                        shade: row.down ? Theme.pressed : Theme.hover
                    }
                    FocusRing {
                        shown: row.ringed
                        inside: true
                    }
                }
                Hairline {
                    visible: row.index + 1 < list.count && !list.tinted(row.index) && !list.tinted(row.index + 1)
                    x: 12
                    y: parent.height - 1
                    width: parent.width - 24
                }
            }

            Label {
                id: words
                x: 12
                y: Math.round((row.height - height - below.height) / 2) - 1
                width: lines.x - x - 16
                role: Label.Role.Strong
                text: row.title
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
            Label {
                id: below
                x: 12
                y: words.y + words.height
                width: words.width
                role: Label.Role.Small
                text: row.under
                color: row.second
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
            Label {
                id: lines
                x: row.width - width - 12
                anchors.verticalCenter: parent.verticalCenter
                role: Label.Role.Small
                text: row.number
                color: row.second
                Accessible.ignored: true
            }
            Hint {
                anchors.leftMargin: 12
                leading: true
                text: row.tip
                wanted: (row.hovered || row.ringed) && (words.truncated || below.truncated)
            }
        }
    }
    // There until it has closed.
    Only {
        id: transcript

        wanted: false

        MeetingTranscript {
            face: page.face
            over: page.over
            onClosed: {
                const focused = page.Window.activeFocusItem;
                if (!page.face.modal && page.face.open && (focused === null || focused === page.Window.contentItem))
                    list.forceActiveFocus(Qt.TabFocusReason);
                // It may have been opened again meanwhile.
                transcript.wanted = page.face.modal;
            }
        }
    }
    Connections {
        target: page.face
        function onModalChanged(): void {
            transcript.wanted = transcript.wanted || page.face.modal;
        }
    }
    Component.onCompleted: transcript.wanted = page.face.modal
}
