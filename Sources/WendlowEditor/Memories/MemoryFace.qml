pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMemories

// The memories: a card for each type, or what a type holds.
FacePage {
    id: memory

    required property MemoryFaceModel face

    readonly property bool grid: memory.face.shape === MemoryFaceModel.Grid
    readonly property ListView list: lists.count > 0 ? (lists.itemAt(0) as MemoriesFace)?.list ?? null : groups.count > 0 ? (groups.itemAt(0) as StatusGroupedList)?.list ?? null : null

    first: memory.grid ? (cards.count > 0 ? cards : null) : (memory.list?.count ?? 0) > 0 ? memory.list : null
    meanwhile: memory.grid ? null : head.chevron

    PageHead {
        id: head
        x: memory.margin
        y: 24
        width: memory.column
        title: memory.face.heading
        hasBack: !memory.grid
        backTo: qsTr("Memories")
        onBack: {
            memory.face.close();
            memory.steppedBack();
        }
        trailing: QuietProgress { running: memory.face.refreshing || memory.trying }
    }
    StateStrip {
        id: strip
        x: memory.margin
        anchors.top: head.bottom
        anchors.topMargin: strip.visible ? Theme.space16 : 0
        width: memory.column
        words: memory.face.strip
        warns: memory.face.stripWarns
        waitingWords: memory.face.reading ? memory.waitingWords : ""
        trying: memory.trying
        onActed: memory.triedAgain()
    }
    Item {
        id: below
        anchors.top: strip.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        TypeGrid {
            id: cards
            visible: memory.grid
            x: memory.margin
            width: memory.column
            height: parent.height
            face: memory.face
            focus: memory.grid
        }
        Repeater {
            id: lists
            model: memory.face.shape === MemoryFaceModel.List ? 1 : 0

            MemoriesFace {
                anchors.fill: below
                margin: memory.margin
                column: memory.column
                model: memory.face.list
                focus: true
            }
        }
        Repeater {
            id: groups
            model: memory.face.shape === MemoryFaceModel.Groups ? 1 : 0

            StatusGroupedList {
                anchors.fill: below
                margin: memory.margin
                column: memory.column
                model: memory.face.groups
                focus: true
            }
        }
    }
}
