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

    // To the rows, if there are some or some to come.
    first: !memory.face.reading && (memory.grid ? cards.count : memory.list?.count ?? 0) === 0 ? null : memory.grid ? cards : memory.list

    PageHead {
        id: head
        x: memory.margin
        y: 24
        width: memory.column
        title: memory.face.heading
        hasBack: !memory.grid
        backTo: qsTr("Memories")
        onBack: memory.face.close()
        trailing: QuietProgress { running: memory.face.refreshing || memory.trying }
    }
    Strip {
        id: strip
        x: memory.margin
        anchors.top: head.bottom
        anchors.topMargin: Theme.space16
        width: memory.column
        visible: memory.face.strip.length > 0
        height: visible ? implicitHeight : 0
        tone: memory.face.stripWarns ? Strip.Tone.Warning : Strip.Tone.Information
        sign: memory.face.stripWarns ? "warn" : "clock"
        text: memory.face.strip
        action: qsTr("Try again")
        onActed: memory.triedAgain()
    }
    Item {
        id: below
        anchors.top: strip.visible ? strip.bottom : head.bottom
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
