pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMoments

// The moments as a library of pictures: days below each other, and any one of them large.
FacePage {
    id: page

    required property MomentsFaceModel face

    readonly property Item wayOut: page.face.failing ? again : null
    readonly property Item shown: cells.count > 0 ? cells : null

    first: page.shown ?? page.wayOut

    StateStrip {
        id: strip
        x: page.margin
        y: strip.visible ? Theme.space16 : 0
        width: page.column
        words: page.face.strip
        warns: true
        waitingWords: page.face.reading ? page.waitingWords : ""
        trying: page.trying
        onActed: page.triedAgain()
    }
    MomentCells {
        id: cells
        anchors.top: strip.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        face: page.face
        margin: page.margin
        column: page.column
        busy: page.face.refreshing || page.trying
    }
    StageWords {
        id: words
        x: page.margin
        width: page.column
        anchors.verticalCenter: parent.verticalCenter
        busy: page.face.reading
        failed: page.face.failing
        iconName: busy ? "" : failed ? "warn" : "stack"
        text: page.face.emptyWords
    }
    Button {
        id: again
        anchors.top: words.bottom
        anchors.topMargin: Theme.space16
        anchors.horizontalCenter: parent.horizontalCenter
        visible: page.face.failing && cells.count === 0
        small: true
        working: page.trying
        text: qsTr("Try again")
        onClicked: if (!page.trying)
            page.triedAgain()
    }
    Once {
        wanted: page.face.lightbox.open

        MomentBox {
            lightbox: page.face.lightbox
            tiles: page.face.tiles
            origin: cells.currentItem
        }
    }
}
