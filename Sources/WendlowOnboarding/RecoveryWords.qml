pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// Twelve numbered words, read downwards. They are for the eye and for paper: what reads the words of a window
// by itself, and keeps them who knows where, finds none here.
Card {
    id: card

    // None while they are still to come; the card has its height from the start.
    required property var phrase
    property bool narrow: false

    readonly property int columns: card.narrow ? 2 : 3
    readonly property int rows: Math.ceil(12 / card.columns)
    readonly property int pitch: Theme.scaled(36)

    height: card.rows * card.pitch + 2 * words.y

    Accessible.role: Accessible.Graphic
    Accessible.name: card.phrase.length > 0 ? qsTr("The words are shown here for the eye alone, and are not read out") : qsTr("The words are not here yet")

    Item {
        id: words
        x: Theme.space8 + 1
        y: 13
        width: card.width - 2 * x

        Repeater {
            model: card.phrase

            delegate: Item {
                id: spot

                required property int index
                required property string modelData

                x: Math.floor(words.width / card.columns * Math.floor(spot.index / card.rows))
                y: card.pitch * (spot.index % card.rows)
                width: Math.floor(words.width / card.columns)
                height: card.pitch

                Label {
                    id: number
                    width: Theme.scaled(26)
                    anchors.verticalCenter: parent.verticalCenter
                    role: Label.Role.Small
                    text: spot.index + 1
                    color: Theme.textSecond
                    horizontalAlignment: Text.AlignRight
                    Accessible.ignored: true
                }
                Label {
                    x: number.width + 10
                    width: parent.width - x
                    anchors.verticalCenter: parent.verticalCenter
                    role: Label.Role.Heading
                    font: Theme.face(15, Font.Medium, -0.1)
                    text: spot.modelData
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                    Accessible.ignored: true
                    Accessible.name: ""
                }
            }
        }
    }
}
