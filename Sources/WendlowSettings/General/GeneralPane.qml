pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// How much is kept on the disk, and the switches for it.
ScrollPage {
    id: pane

    required property PrivacyModel model

    readonly property DaemonSwitch log: pane.model.diagnosticLogging
    readonly property bool narrow: pane.width < 600

    sideMargin: pane.narrow ? Theme.space24 : Theme.space48
    above: pane.narrow ? Theme.space24 : 40

    Component.onCompleted: pane.model.refresh()

    PaneHead {
        width: parent.width
        title: qsTr("Manage how much data is saved to your computer")
        body: qsTr("Wendlow keeps text for every screen moment. Additionally, you can keep screenshots of moments. This is useful if you want your AI to \"see\" your mockups, software etc.")
        error: pane.model.error
        retrying: pane.model.retrying
        onRetried: pane.model.refresh()
    }
    Card {
        width: parent.width
        height: table.height + 2

        KeepColumns {
            id: tableColumns
            of: table.width
        }
        Column {
            id: table
            x: 1
            y: 1
            width: parent.width - 2

            Accessible.role: Accessible.List
            Accessible.name: qsTr("What is saved")

            KeepTableHead {
                width: table.width
                columns: tableColumns
            }
            Repeater {
                model: pane.model.rows

                delegate: KeepRow {
                    id: kept

                    required property int index
                    required property var modelData

                    readonly property bool everyday: kept.keep === pane.model.frameKeep

                    width: table.width
                    columns: tableColumns
                    label: kept.modelData.label
                    rate: kept.modelData.rate
                    month: kept.modelData.month
                    keep: kept.modelData.keep
                    used: pane.model.used[kept.index]
                    note: kept.everyday ? pane.model.purge : ""
                    working: kept.everyday && pane.model.purging
                    onToggled: on => kept.everyday ? pane.model.toggleFrameKeep(on) : pane.model.toggleReelKeep(on)
                }
            }
        }
    }
    Item {
        width: 1
        height: Theme.sectionAbove
    }
    SelfNamesField {
        width: parent.width
        model: pane.model
    }
    Item {
        width: 1
        height: Theme.sectionAbove
    }
    Card {
        width: parent.width
        height: promise.height + 2 * Theme.space16

        SymbolTile {
            x: Theme.cardPadding + 1
            y: Theme.space16
            name: "lock.shield.fill"
        }
        Column {
            id: promise
            x: Theme.cardPadding + 1 + Theme.scaled(32) + Theme.space12
            y: Theme.space16
            width: Math.min(Theme.scaled(470), parent.width - x - Theme.cardPadding)

            Label {
                width: parent.width
                role: Label.Role.Strong
                text: qsTr("Your recordings stay on your Mac. We never see them.")
                wrapMode: Text.Wrap
            }
            Label {
                width: parent.width
                role: Label.Role.Small
                text: qsTr("Captured on-device, encrypted, and never uploaded. The local AI reads them so your assistant has context.")
                color: Theme.textSecond
                wrapMode: Text.Wrap
            }
        }
    }
    AltKey {
        id: alt
        within: pane
    }
    Once {
        wanted: pane.log.on || pane.log.writing || pane.log.refusal.length > 0 || alt.held

        Column {
            width: parent?.width ?? 0
            topPadding: Theme.space12
            visible: diagnostic.wanted

            DiagnosticCard {
                id: diagnostic
                width: parent.width
                model: pane.model
                altHeld: alt.held
            }
        }
    }
    Once {
        wanted: pane.model.confirmingFrameKeepOff

        DeleteQuestion {
            title: qsTr("Turn off screenshots?")
            open: pane.model.confirmingFrameKeepOff
            body: pane.model.frameKeepQuestion
            onConfirmed: pane.model.confirmFrameKeepOff()
            onCancelled: pane.model.cancelFrameKeepOff()
        }
    }
    Once {
        wanted: pane.model.confirmingReelKeepOff

        DeleteQuestion {
            title: qsTr("Turn off meeting screenshots?")
            open: pane.model.confirmingReelKeepOff
            body: pane.model.reelKeepQuestion
            onConfirmed: pane.model.confirmReelKeepOff()
            onCancelled: pane.model.cancelReelKeepOff()
        }
    }
}
