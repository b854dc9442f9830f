pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// The recovery phrase: hidden, or as twelve numbered words.
Card {
    id: card

    required property RecoveryModel model

    readonly property int columns: card.width < Theme.scaled(420) ? 2 : 3
    readonly property int rows: Math.ceil(card.model.words.length / card.columns)

    height: content.height + 2 * Theme.cardPadding - Theme.space8

    Column {
        id: content
        x: Theme.cardPadding + 1
        y: Theme.cardPadding - Theme.space8
        width: parent.width - 2 * x
        spacing: Theme.space12

        Label {
            visible: !card.model.revealed
            width: parent.width
            height: Theme.scaled(32)
            role: Label.Role.Heading
            text: card.model.maskedPhrase
            color: Theme.textSecond
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
            Accessible.name: qsTr("The phrase is hidden")
        }
        Grid {
            visible: card.model.revealed
            columns: card.columns
            flow: Grid.TopToBottom
            rows: card.rows

            Accessible.role: Accessible.List
            Accessible.name: card.model.phraseHeader

            Repeater {
                model: card.model.words

                delegate: Item {
                    id: spot

                    required property int index
                    required property string modelData

                    width: Math.floor(content.width / card.columns)
                    height: Theme.scaled(32)

                    Accessible.role: Accessible.ListItem
                    Accessible.name: qsTr("%1: %2").arg(spot.index + 1).arg(spot.modelData)

                    Label {
                        id: number
                        width: Theme.scaled(18)
                        anchors.verticalCenter: parent.verticalCenter
                        text: spot.index + 1
                        color: Theme.textSecond
                        horizontalAlignment: Text.AlignRight
                        Accessible.ignored: true
                    }
                    Label {
                        anchors.left: number.right
                        anchors.leftMargin: 10
                        anchors.right: parent.right
                        anchors.verticalCenter: parent.verticalCenter
                        role: Label.Role.Strong
                        text: spot.modelData
                        elide: Text.ElideRight
                        Accessible.ignored: true
                    }
                }
            }
        }
        Row {
            spacing: Theme.space8

            Button {
                text: card.model.revealWords
                working: card.model.revealing
                onClicked: card.model.revealOrHide()
            }
            Button {
                id: copy
                visible: card.model.revealed
                text: card.model.copyWords
                hint: lately.running ? qsTr("Copied") : card.model.phraseHeader
                iconName: lately.running ? "check" : "copy"
                onClicked: {
                    card.model.copy();
                    lately.restart();
                    Speech.say(qsTr("Copied"));
                }

                // Long enough to be seen, and then the button is as it was.
                Timer {
                    id: lately
                    interval: 1500
                }
            }
            Label {
                visible: lately.running && copy.visible
                anchors.verticalCenter: parent.verticalCenter
                role: Label.Role.Small
                text: qsTr("Copied")
                color: Theme.textSecond
            }
        }
        RefusalLine {
            width: parent.width
            text: card.model.error
        }
    }
}
