pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMods

// The mods: a card for each that is installed, with its runs; those that were refused; the runs of those that
// are gone. One list, whose stops the arrows walk; Return opens the report of a run.
FacePage {
    id: page

    required property ModsFaceModel face

    first: list.count > 0 ? list : null

    PageHead {
        id: head
        x: page.margin
        y: 24
        width: page.column
        title: page.face.title
        trailing: QuietProgress { running: page.trying }
    }
    StateStrip {
        id: strip
        x: page.margin
        anchors.top: head.bottom
        anchors.topMargin: strip.visible ? Theme.space16 : 0
        width: page.column
        words: page.face.trouble
        warns: true
        waitingWords: page.face.reading ? page.waitingWords : ""
        trying: page.trying
        onActed: page.triedAgain()
    }
    StageWords {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(page.column, Theme.scaled(440))
        busy: page.face.reading
        iconName: page.face.reading ? "" : "grid"
        text: page.face.emptyWords
    }
    WalkedList {
        id: list
        anchors.top: strip.bottom
        anchors.topMargin: Theme.space12
        anchors.bottom: parent.bottom
        width: parent.width
        rowHeight: Theme.scaled(32)
        focus: true
        model: page.face.rows
        stops: page.face.rows
        onActivated: index => page.face.activate(index)
        Accessible.name: page.face.title

        delegate: ModsRow {
            id: row

            x: page.margin
            width: page.column
            chosen: row.ListView.isCurrentItem && list.activeFocus
            ringed: row.chosen && list.byKey
            onPressed: list.claim(row.index)
            onClaimed: list.claim(row.index)
            onClicked: row.acted()
            onActed: {
                list.claim(row.index);
                page.face.activate(row.index);
            }
        }
    }
    Hairline {
        x: page.margin
        y: list.y
        width: page.column
        visible: !list.atYBeginning
    }
    Connections {
        target: page.face
        function onRevealed(row: int): void {
            list.go(row);
        }
        function onModalChanged(): void {
            report.wanted = report.wanted || page.face.modal;
        }
    }
    // There until it has closed.
    Only {
        id: report

        wanted: false

        ReportSheet {
            face: page.face
            onClosed: {
                const focused = page.Window.activeFocusItem;
                if (!page.face.modal && page.face.open && (focused === null || focused === page.Window.contentItem))
                    list.forceActiveFocus(Qt.TabFocusReason);
                // It may have been opened again meanwhile.
                report.wanted = page.face.modal;
            }
        }
    }
}
