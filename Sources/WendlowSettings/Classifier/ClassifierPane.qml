pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings
import WendlowSettings

// Which local model reads the captures: plain facts.
ScrollPage {
    id: pane

    required property var status

    readonly property bool narrow: pane.width < 600
    readonly property var facts: [
        {
            label: qsTr("Model"),
            value: pane.status.model
        },
        {
            label: qsTr("Runtime"),
            value: pane.status.runtime
        },
        {
            label: qsTr("Status"),
            value: pane.status.word,
            tone: pane.status.tone
        },
        {
            label: qsTr("Size on disk"),
            value: pane.status.sizeOnDisk
        }
    ]

    sideMargin: pane.narrow ? Theme.space24 : Theme.space48
    above: pane.narrow ? Theme.space24 : 40

    PaneHead {
        width: parent.width
        title: qsTr("Runs entirely on your Mac")
        body: qsTr("A small local AI model reads your captures to understand your day. Your screen contents are never sent anywhere to be classified.")
    }
    Card {
        width: parent.width
        height: rows.height + 2

        Column {
            id: rows
            x: 1
            y: 1
            width: parent.width - 2

            Accessible.role: Accessible.List
            Accessible.name: qsTr("Local AI Classifier")

            Repeater {
                model: pane.facts

                delegate: Item {
                    id: fact

                    required property int index
                    required property var modelData

                    readonly property string tone: fact.modelData.tone ?? ""

                    width: rows.width
                    height: Theme.scaled(44)

                    Accessible.role: Accessible.ListItem
                    Accessible.name: fact.modelData.label
                    Accessible.description: fact.modelData.value

                    Hairline {
                        visible: fact.index > 0
                        width: fact.width
                    }
                    Label {
                        id: label
                        x: Theme.cardPadding
                        anchors.verticalCenter: parent.verticalCenter
                        text: fact.modelData.label
                        color: Theme.textSecond
                        Accessible.ignored: true
                    }
                    Label {
                        id: value
                        x: fact.width - Theme.cardPadding - width
                        width: Math.min(implicitWidth, fact.width - label.width - 3 * Theme.cardPadding)
                        anchors.verticalCenter: parent.verticalCenter
                        text: fact.modelData.value
                        elide: Text.ElideRight
                        Accessible.ignored: true

                        HoverHandler { id: pointer }
                        Hint {
                            text: fact.modelData.value
                            wanted: pointer.hovered && value.truncated
                        }
                    }
                    Rectangle {
                        visible: fact.tone.length > 0
                        x: value.x - width - Theme.space8
                        anchors.verticalCenter: parent.verticalCenter
                        width: Theme.scaled(8)
                        height: Theme.scaled(8)
                        radius: width / 2
                        color: fact.tone === "running" ? Theme.accent : fact.tone === "error" ? Theme.refusal : Theme.control
                    }
                }
            }
        }
    }
}
