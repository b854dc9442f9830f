pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// The page of a search: what was found, by what it is. Its selection moves by the arrows, also while the
// search field has the focus.
FocusScope {
    id: page

    required property EditorRoot root
    required property int margin
    required property int column

    readonly property EditorSearch search: page.root.search
    // Beside the heading there is no room for more.
    readonly property bool narrow: page.column < 560

    PageHead {
        id: head
        x: page.margin
        y: 20
        width: page.column - (page.narrow || timing.width === 0 ? 0 : timing.width + 16)
        title: page.search.heading
        hasBack: true
        backTo: page.root.title
        onBack: page.root.clearSearch()
        trailing: QuietProgress { running: page.search.busy }
    }
    Label {
        id: timing
        x: page.narrow ? page.margin : page.margin + page.column - width
        y: page.narrow ? head.y + head.height + 4 : head.y + 6
        role: Label.Role.Fine
        text: page.search.timing
        color: Theme.textSecond
    }
    Strip {
        id: strip
        x: page.margin
        anchors.top: page.narrow ? timing.bottom : head.bottom
        anchors.topMargin: Theme.space16
        width: page.column
        visible: page.search.trouble.length > 0
        tone: Strip.Tone.Warning
        text: page.search.trouble
    }
    StageWords {
        anchors.centerIn: parent
        width: page.column
        busy: false
        iconName: "search"
        text: page.search.noMatches
    }

    ListView {
        id: list
        width: parent.width
        anchors.top: strip.visible ? strip.bottom : page.narrow ? timing.bottom : head.bottom
        anchors.bottom: parent.bottom
        clip: true
        focus: true
        activeFocusOnTab: list.count > 0 || list.activeFocus
        boundsBehavior: Flickable.StopAtBounds
        bottomMargin: Theme.space24
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: true
        highlightMoveDuration: 0
        currentIndex: page.search.selection
        model: page.search.hits
        // From key to key hits come and go: one that comes takes the row of one that went, much faster than a row
        // is made.
        reuseItems: true
        cacheBuffer: 0

        T.ScrollBar.vertical: ScrollBar {}

        Accessible.role: Accessible.List
        Accessible.name: page.search.heading

        Keys.onUpPressed: page.root.rail.arrowPress(-1, false)
        Keys.onDownPressed: page.root.rail.arrowPress(1, false)
        Keys.onReturnPressed: page.root.commitSearchSelection()
        Keys.onEnterPressed: page.root.commitSearchSelection()

        delegate: SearchRow {
            id: hit

            x: page.margin - 12
            width: page.column + 24
            chosen: hit.index === page.search.selection
            ringed: hit.chosen && list.activeFocus
            onOpened: page.root.openHit(hit.index)
            // A row that waits for its next use is no row to a screen reader either.
            ListView.onPooled: hit.visible = false
            ListView.onReused: hit.visible = true
        }
    }
    Hairline {
        x: page.margin
        y: list.y
        width: page.column
        visible: !list.atYBeginning
    }
}
