pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowSettings

// A table of paths under a heading. Unfolded, a long one scrolls in a frame of its own, so that its page stays
// short, and makes only the lines in sight. It is one stop for the tab key; the arrows go through its lines.
Column {
    id: table

    required property string title
    required property string spokenTitle
    required property InventoryList lines
    required property string note
    property string source
    property string shownSource
    property bool reading: false

    signal copied(path: string)

    // Too narrow for columns, what is known of a path stands below it.
    readonly property bool stacked: table.width < Theme.scaled(360)
    readonly property int lineHeight: table.stacked ? Theme.scaled(43) : Theme.scaled(25)
    readonly property int linesInSight: 12

    Item {
        width: table.width
        height: Theme.scaled(21)

        Label {
            id: heading
            role: Label.Role.GroupTitle
            text: table.title
            color: Theme.textSecond
            Accessible.role: Accessible.Heading
        }
        Spinner {
            visible: table.reading
            x: heading.width + 8
            y: Theme.scaled(1)
            size: Theme.scaled(14)
        }
        PathLine {
            visible: !table.stacked && table.shownSource.length > 0
            anchors.right: parent.right
            width: Math.min(implicitWidth, parent.width - heading.width - Theme.space48)
            role: Label.Role.Fine
            text: table.shownSource
            whole: table.source
            color: Theme.textSecond
        }
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    ListView {
        id: list

        // Room on both sides for the ring of a line, and for the scroll bar.
        x: -8
        width: table.width + 16
        // A line that is cut in half says that there are more.
        height: (list.count > table.linesInSight ? table.linesInSight + 0.5 : list.count) * table.lineHeight
        model: table.lines
        interactive: list.count > table.linesInSight
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true
        reuseItems: true
        clip: list.interactive
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false

        T.ScrollBar.vertical: ScrollBar {}

        PlaceKeeper { view: list }

        Accessible.role: Accessible.List
        Accessible.name: table.spokenTitle

        function go(to: int): void {
            list.currentIndex = Math.max(0, Math.min(to, list.count - 1));
            list.positionViewAtIndex(list.currentIndex, ListView.Contain);
            // The view has given it the focus by now, but not for this reason, which draws the ring.
            (list.currentItem as InventoryLine).focusReason = Qt.TabFocusReason;
        }

        Keys.onPressed: event => {
            const steps = {
                [Qt.Key_Up]: list.currentIndex - 1,
                [Qt.Key_Down]: list.currentIndex + 1,
                [Qt.Key_PageUp]: list.currentIndex - table.linesInSight,
                [Qt.Key_PageDown]: list.currentIndex + table.linesInSight,
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: list.count - 1
            };
            event.accepted = event.key in steps;
            if (event.accepted)
                list.go(steps[event.key]);
        }

        delegate: InventoryLine {
            id: entry

            width: list.width
            height: table.lineHeight
            stacked: table.stacked
            endsWithHairline: entry.index < list.count - 1
            current: entry.ListView.isCurrentItem
            onPicked: list.currentIndex = entry.index
            onCopied: table.copied(entry.path)
            onActiveFocusChanged: if (entry.activeFocus)
                list.positionViewAtIndex(entry.index, ListView.Contain)
        }
    }
    Button {
        visible: table.lines.toggleWords.length > 0
        x: -8
        kind: Button.Kind.Quiet
        small: true
        text: table.lines.toggleWords
        hint: table.spokenTitle
        onClicked: table.lines.toggle()
    }
    Label {
        visible: table.note.length > 0
        width: table.width
        height: implicitHeight + 9
        topPadding: lead + 5
        role: Label.Role.Small
        text: table.note
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
}
