pragma ComponentBehavior: Bound

import QtQuick

// What lies over a window as it looks when open, words that can be selected, and rows that lead to more: at
// rest, under the pointer, focused, and one that leads nowhere.
Column {
    id: panels

    spacing: Theme.space8

    BenchHead {
        width: panels.width
        text: qsTr("Overlay, rows that lead on, words that can be selected")
    }
    Item {
        id: stage
        width: panels.width
        height: Theme.scaled(232)
        clip: true

        Rectangle {
            anchors.fill: parent
            color: Theme.scrim
        }
        Rectangle {
            anchors.centerIn: parent
            width: parent.width - 120
            height: parent.height - 48
            color: Theme.surface
            radius: Theme.radiusCard
            border.width: Theme.strokeHairline
            border.color: Theme.edge

            Column {
                x: 12
                y: 12
                width: parent.width - 24

                Repeater {
                    model: [[true, false, false], [true, true, false], [true, false, true], [false, false, false]]

                    DisclosureRow {
                        id: row

                        required property var modelData

                        width: parent.width
                        leads: row.modelData?.[0] ?? false
                        lit: row.modelData?.[1] ?? false
                        ringed: row.modelData?.[2] ?? false
                        text: "Nov 19, 2:02 PM"
                        help: row.ringed ? "" : row.leads ? qsTr("Open this run's report") : qsTr("There is none")

                        Label {
                            x: 8
                            anchors.verticalCenter: parent.verticalCenter
                            role: Label.Role.Small
                            text: row.text
                            Accessible.ignored: true
                        }
                    }
                }
                Item {
                    width: 1
                    height: Theme.space12
                }
                SelectableText {
                    x: 8
                    width: parent.width - 16
                    tabStop: true
                    markup: "Words that a person may want to take along."
                    spoken: "Words that a person may want to take along."
                    Component.onCompleted: select(0, 5)
                }
            }
        }
    }
    Button {
        text: qsTr("Open an overlay")
        onClicked: over.open = true
    }
    Overlay {
        id: over

        name: qsTr("An overlay")
        open: false
        over: stage
        widest: 400
        onEscaped: over.open = false

        Label {
            anchors.centerIn: parent
            text: qsTr("Escape closes it")
        }
    }
}
