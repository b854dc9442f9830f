pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorScopes

// The moves of a migration, old path and new, in a frame of their own that scrolls.
Item {
    id: table

    required property ScopeMoves moves

    readonly property int count: list.count
    readonly property int rowHeight: Theme.scaled(28)
    readonly property int column: Math.round((table.width - 2 * 12 - 24) / 2)

    implicitHeight: frame.y + frame.height

    Repeater {
        model: [qsTr("Path now"), qsTr("New path")]

        Label {
            required property string modelData
            required property int index

            x: 12 + index * (table.column + 24)
            y: Theme.space16
            role: Label.Role.Caption
            text: modelData
            color: Theme.textSecond
        }
    }
    Rectangle {
        id: frame
        y: Theme.space16 + Theme.lines[Label.Role.Caption] + 4
        width: table.width
        height: Math.min(list.contentHeight, Math.round(6.5 * table.rowHeight)) + 2
        radius: Theme.radiusButton
        color: Theme.surface
        border.width: Theme.strokeHairline
        border.color: Theme.hairline

        ListView {
            id: list
            anchors.fill: parent
            anchors.margins: 1
            clip: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            reuseItems: true
            keyNavigationEnabled: false
            model: table.moves

            T.ScrollBar.vertical: ScrollBar {}

            ReadingOrder { rows: list.contentItem }

            Accessible.role: Accessible.List
            Accessible.name: qsTr("Scopes that move")

            Keys.onPressed: event => {
                const last = list.count - 1;
                const steps = {
                    [Qt.Key_Up]: Math.max(0, list.currentIndex - 1),
                    [Qt.Key_Down]: Math.min(last, list.currentIndex + 1),
                    [Qt.Key_PageUp]: Math.max(0, list.currentIndex - 5),
                    [Qt.Key_PageDown]: Math.min(last, list.currentIndex + 5),
                    [Qt.Key_Home]: 0,
                    [Qt.Key_End]: last
                };
                event.accepted = event.key in steps;
                if (event.accepted)
                    list.currentIndex = steps[event.key];
            }

            delegate: Item {
                id: move

                required property int index
                required property string from
                required property string to

                readonly property bool ringed: move.ListView.isCurrentItem && list.activeFocus

                width: list.width
                height: table.rowHeight

                Accessible.role: Accessible.ListItem
                Accessible.name: move.from + " → " + move.to

                FocusRing {
                    shown: move.ringed
                    inside: true
                    around: Theme.radiusTile
                }
                Label {
                    id: from
                    x: 11
                    y: Math.round((parent.height - height) / 2)
                    width: table.column
                    role: Label.Role.Small
                    text: move.from
                    color: Theme.textSecond
                    elide: Text.ElideMiddle
                    horizontalAlignment: Text.AlignLeft
                    Accessible.ignored: true
                }
                Label {
                    x: 11 + table.column
                    y: from.y
                    width: 24
                    role: Label.Role.Small
                    text: "→"
                    color: Theme.textSecond
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.ignored: true
                }
                Label {
                    id: to
                    x: 11 + table.column + 24
                    y: from.y
                    width: table.column
                    role: Label.Role.Small
                    text: move.to
                    elide: Text.ElideMiddle
                    horizontalAlignment: Text.AlignLeft
                    Accessible.ignored: true
                }
                HoverHandler { id: pointer }
                Hint {
                    text: move.from + " → " + move.to
                    leading: true
                    wanted: (pointer.hovered || move.ringed) && (from.truncated || to.truncated)
                }
            }
        }
    }
}
