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
    property bool trying: false
    property string waitingWords

    // Where the focus goes when the page is entered.
    readonly property Item first: list.count > 0 ? list : head.chevron

    signal triedAgain

    // Beside the heading there is no room for more.
    readonly property bool narrow: page.column < Theme.scaled(560)
    readonly property int rowsOfAPage: Math.max(1, Math.floor(list.height / Theme.scaled(44)) - 1)

    PageHead {
        id: head
        x: page.margin
        y: 20
        width: page.column - (page.narrow || timing.width === 0 ? 0 : timing.width + 16)
        title: page.search.heading
        hasBack: true
        backTo: page.backTo
        onBack: page.search.clear()
        trailing: QuietProgress { running: page.search.busy || page.trying }
    }
    Label {
        id: timing
        x: page.narrow ? page.margin : page.margin + page.column - width
        y: page.narrow ? head.y + head.height + 4 : head.y + Math.round((head.height - height) / 2)
        role: Label.Role.Fine
        text: page.search.timing
        color: Theme.textSecond
    }
    StateStrip {
        id: strip
        x: page.margin
        anchors.top: page.narrow ? timing.bottom : head.bottom
        anchors.topMargin: strip.visible ? Theme.space16 : 0
        width: page.column
        words: page.search.trouble
        warns: true
        waitingWords: page.search.busy ? page.waitingWords : ""
        trying: page.trying
        onActed: page.triedAgain()
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
        anchors.top: strip.bottom
        anchors.topMargin: strip.visible ? 8 : 0
        anchors.bottom: parent.bottom
        clip: true
        focus: true
        activeFocusOnTab: list.count > 0 || list.activeFocus
        boundsBehavior: Flickable.StopAtBounds
        bottomMargin: Theme.space24 + (searching.visible ? searching.height + 20 : 0)
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
        Keys.onPressed: event => {
            const at = page.search.selection;
            const steps = {
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: list.count - 1,
                [Qt.Key_PageUp]: at - page.rowsOfAPage,
                [Qt.Key_PageDown]: at + page.rowsOfAPage
            };
            event.accepted = event.key in steps;
            if (event.accepted)
                page.search.select(steps[event.key]);
        }

        ReadingOrder { rows: list.contentItem }
        PlaceKeeper { view: list }

        // Behind the last hit: what was found here is there, and the rest is to come.
        Row {
            id: searching
            parent: list.contentItem
            x: page.margin
            y: list.originY + list.contentHeight + 12
            spacing: Theme.space8
            visible: page.search.slow

            Spinner {}
            Label {
                role: Label.Role.Small
                text: qsTr("Searching memories…")
                color: Theme.textSecond
            }
        }

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
