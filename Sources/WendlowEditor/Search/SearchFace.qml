pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorSearch

// The page of a search: what was found, by what it is. Its selection moves by the arrows, also while the
// search field has the focus.
FocusScope {
    id: page

    required property EditorSearch search
    required property int margin
    required property int column
    // The title of what lies behind.
    required property string backTo

    // Beside the heading there is no room for more.
    readonly property bool narrow: page.column < 560

    PageHead {
        id: head
        x: page.margin
        y: 20
        width: page.column - (page.narrow || timing.width === 0 ? 0 : timing.width + 16)
        title: page.search.heading
        hasBack: true
        backTo: page.backTo
        onBack: page.search.clear()
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

        Keys.onUpPressed: page.search.moveBy(-1)
        Keys.onDownPressed: page.search.moveBy(1)
        Keys.onReturnPressed: page.search.commit()
        Keys.onEnterPressed: page.search.commit()

        delegate: SearchRow {
            id: hit

            x: page.margin - 12
            width: page.column + 24
            chosen: hit.index === (page?.search.selection ?? -1)
            ringed: hit.chosen && list.activeFocus
            onOpened: page.search.openHit(hit.index)
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
