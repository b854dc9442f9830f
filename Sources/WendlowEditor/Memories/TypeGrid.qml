pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMemories

// A card for each type of memory, as many in a line as there is room for.
FocusScope {
    id: grid

    required property MemoryFaceModel face

    readonly property int count: cards.count
    readonly property int columns: Math.max(1, Math.floor((grid.width + cards.gap) / (40 + Theme.scaled(160) + cards.gap)))

    StageWords {
        anchors.centerIn: parent
        width: parent.width
        busy: grid.face.reading
        text: grid.face.emptyWords
        next: grid.face.nextStep
    }

    GridView {
        id: cards

        // A gap behind the last column too, which hangs out at the right.
        readonly property int gap: 12
        property bool byKey: false

        y: 8
        // And a pixel, for cells that are no whole number of them.
        width: parent.width + cards.gap + 1
        height: parent.height - 8
        topMargin: 12
        bottomMargin: Theme.space24
        clip: true
        focus: true
        activeFocusOnTab: cards.count > 0 || cards.activeFocus
        boundsBehavior: Flickable.StopAtBounds
        cellWidth: (grid.width + cards.gap) / grid.columns
        cellHeight: Theme.scaled(88) + cards.gap
        highlightMoveDuration: 0
        model: grid.face.cards
        onActiveFocusChanged: if (cards.activeFocus)
            cards.byKey = LastInput.byKey
        onCountChanged: if (cards.currentIndex < 0 && cards.count > 0)
            cards.currentIndex = 0

        ReadingOrder { rows: cards.contentItem }
        PlaceKeeper { view: cards }

        T.ScrollBar.vertical: ScrollBar {
            parent: grid.parent
            anchors.right: parent?.right
            y: cards.y
            height: cards.height
        }

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Types of memory")

        Keys.onPressed: event => {
            cards.byKey = true;
            event.accepted = false;
        }
        Keys.onReturnPressed: grid.face.openCard(cards.currentIndex)
        Keys.onEnterPressed: grid.face.openCard(cards.currentIndex)
        Keys.onSpacePressed: grid.face.openCard(cards.currentIndex)
        // At the left edge the key goes on to the rail.
        Keys.onLeftPressed: event => {
            event.accepted = cards.currentIndex % grid.columns !== 0;
            if (event.accepted)
                cards.moveCurrentIndexLeft();
        }

        delegate: T.ItemDelegate {
            id: card

            required property int index
            required property string title
            required property string count
            required property bool dimmed

            readonly property bool ringed: cards.activeFocus && cards.byKey && card.GridView.isCurrentItem
            readonly property color ink: !card.dimmed ? Theme.text : card.hovered ? Theme.textSecondOnTint : Theme.textSecond

            // The edges stand on whole pixels, as the column's do.
            readonly property real nudge: Math.round(card.x) - card.x
            readonly property real trim: card.x + card.width - Math.round(card.x + card.width)

            width: cards.cellWidth - cards.gap
            height: cards.cellHeight - cards.gap
            leftInset: card.nudge
            rightInset: card.trim
            hoverEnabled: true
            focusPolicy: Qt.NoFocus
            text: card.title

            Accessible.name: card.title + ", " + card.count
            Accessible.description: card.dimmed ? qsTr("Nothing matches") : ""
            Accessible.onPressAction: card.clicked()
            onClicked: {
                cards.currentIndex = card.index;
                grid.face.openCard(card.index);
            }

            background: Rectangle {
                radius: Theme.radiusCard
                color: card.dimmed ? "transparent" : Theme.surface
                border.width: Theme.strokeHairline
                border.color: card.hovered ? Theme.edge : Theme.hairline

                HoverFill {
                    anchors.fill: parent
                    radius: Theme.radiusCard
                    lit: card.hovered || card.down
                    shade: card.down ? Theme.pressed : Theme.hover
                }
                FocusRing {
                    shown: card.ringed
                    around: Theme.radiusCard
                    inside: true
                }
            }
            Item {
                anchors.fill: parent
                anchors.leftMargin: card.nudge
                anchors.rightMargin: card.trim

                Label {
                    id: words
                    x: 17
                    y: Theme.scaled(15)
                    width: parent.width - 34
                    role: Label.Role.Strong
                    text: card.title
                    color: card.ink
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                    Accessible.ignored: true
                }
                Label {
                    x: 17
                    y: Theme.scaled(44)
                    role: Label.Role.Figure
                    text: card.count
                    color: card.ink
                    Accessible.ignored: true
                }
            }
            Hint {
                text: card.title
                wanted: card.hovered && words.truncated
            }
        }
    }
    Hairline {
        y: cards.y
        width: grid.width
        visible: !cards.atYBeginning
    }
}
