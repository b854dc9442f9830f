pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorBenches

// The Editor's stage beside a panel that sets what it is over and how it looks. This window has looks of its
// own, so that no other one changes with it.
FocusScope {
    id: face

    required property WorkbenchModel bench

    readonly property var scales: [1, 1.25, 1.5, 2]

    FocusScope {
        id: panel
        width: Math.min(Theme.scaled(248), Math.round(face.width * 0.42))
        height: parent.height
        focus: true

        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Panel")

        Rectangle {
            anchors.fill: parent
            color: Theme.sidebar
        }
        ScrollPage {
            id: page
            anchors.fill: parent
            columnWidth: page.width
            sideMargin: Theme.space16
            above: Theme.space12
            below: Theme.space12

            SearchField {
                id: field
                width: parent.width
                focus: true
                value: face.bench.root.search.text
                onTyped: text => face.bench.root.search.text = text
                onAccepted: face.bench.root.search.commit()
                Keys.onUpPressed: face.bench.root.search.moveBy(-1)
                Keys.onDownPressed: face.bench.root.search.moveBy(1)
            }
            Item {
                width: 1
                height: Theme.space12
            }
            BenchRows {
                width: parent.width
                title: qsTr("Answers")
                choices: face.bench.answers
                onChosen: word => face.bench.chooseAnswers(word)
            }
            Item {
                width: 1
                height: Theme.space12
            }
            BenchRows {
                width: parent.width
                title: qsTr("Face")
                choices: face.bench.faces
                onChosen: word => face.bench.chooseFace(word)
            }
            Item {
                width: 1
                height: Theme.space12
            }
            BenchWords {
                width: parent.width
                title: qsTr("Width of the stage")
                choices: face.bench.widths
                onChosen: word => face.bench.chooseWidth(word)
            }
            Item {
                width: 1
                height: Theme.space12
            }
            Flow {
                width: parent.width
                spacing: Theme.space24

                BenchWords {
                    title: qsTr("Theme")
                    choices: [
                        {
                            word: qsTr("Light"),
                            picked: !ThemeSource.dark
                        },
                        {
                            word: qsTr("Dark"),
                            picked: ThemeSource.dark
                        }
                    ]
                    onChosen: word => ThemeSource.dark = word === qsTr("Dark")
                }
                BenchWords {
                    title: qsTr("Motion")
                    choices: [
                        {
                            word: qsTr("Full"),
                            picked: !ThemeSource.reduceMotion
                        },
                        {
                            word: qsTr("Reduced"),
                            picked: ThemeSource.reduceMotion
                        }
                    ]
                    onChosen: word => ThemeSource.reduceMotion = word === qsTr("Reduced")
                }
            }
            Item {
                width: 1
                height: Theme.space12
            }
            BenchWords {
                width: parent.width
                title: qsTr("Size of the words")
                choices: face.scales.map(scale => ({
                    word: scale.toString(),
                    picked: ThemeSource.textScale === scale
                }))
                onChosen: word => ThemeSource.textScale = Number(word)
            }
        }
        Hairline {
            anchors.right: parent.right
            width: 1
            height: parent.height
        }
    }
    // A stage that is wider than its room is moved to; beside one that is narrower the room is marked.
    Rectangle {
        anchors.left: panel.right
        anchors.right: parent.right
        height: parent.height
        color: Theme.well
    }
    Flickable {
        id: room
        anchors.left: panel.right
        anchors.right: parent.right
        height: parent.height
        contentWidth: stage.width
        contentHeight: height
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.HorizontalFlick

        T.ScrollBar.horizontal: ScrollBar {}

        BenchStage {
            id: stage
            width: face.bench.width > 0 ? face.bench.width : room.width
            height: room.height
            root: face.bench.root
            onExited: field.forceActiveFocus(LastInput.reason)
        }
        Hairline {
            visible: stage.width < room.width
            x: stage.width
            width: 1
            height: parent.height
        }
    }
}
