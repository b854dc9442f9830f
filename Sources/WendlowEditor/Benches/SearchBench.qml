pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor
import WendlowEditorBenches
import WendlowEditorSearch

// The search page, to be typed into: as it stands in a window, and where there is room also in a narrow one.
FocusScope {
    id: face

    required property SearchBenchModel bench

    readonly property EditorSearch search: face.bench.root.search
    readonly property int margin: Theme.space24
    readonly property bool twice: face.width >= Theme.scaled(900)

    Keys.onPressed: event => {
        event.accepted = Shortcuts.isPressed(Shortcuts.StepBack, event.key, event.modifiers) && face.search.searching;
        if (event.accepted)
            face.search.clear();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.ground
    }
    Column {
        id: head
        x: face.margin
        y: Theme.space16
        width: parent.width - 2 * face.margin
        spacing: Theme.space12

        SearchField {
            width: Math.min(Theme.scaled(360), parent.width)
            focus: true
            prompt: qsTr("Search")
            value: face.search.text
            onTyped: text => face.search.text = text
            onAccepted: face.search.commit()
            Keys.onUpPressed: face.search.moveBy(-1)
            Keys.onDownPressed: face.search.moveBy(1)
        }
        Flow {
            width: parent.width
            spacing: Theme.space8

            Repeater {
                model: face.bench.examples

                Button {
                    id: example

                    required property string modelData

                    small: true
                    text: example.modelData
                    onClicked: face.search.text = example.modelData
                }
            }
        }
        Flow {
            width: parent.width
            spacing: Theme.space8

            Repeater {
                model: face.bench.answers

                Button {
                    id: over

                    required property var modelData

                    small: true
                    kind: over.modelData.picked ? Button.Kind.Primary : Button.Kind.Quiet
                    text: over.modelData.word
                    Accessible.checkable: true
                    Accessible.checked: over.modelData.picked
                    onClicked: face.bench.chooseAnswers(over.text)
                }
            }
        }
    }
    Hairline {
        y: head.y + head.height + Theme.space12
        width: parent.width
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * face.margin
        visible: !face.search.searching
        iconName: "search"
        text: qsTr("Type two letters or more.")
    }
    Item {
        id: pages
        anchors.fill: parent
        anchors.topMargin: head.y + head.height + Theme.space12 + 1
        visible: face.search.searching

        Repeater {
            model: face.twice ? [false, true] : [false]

            Item {
                id: place

                required property bool modelData
                readonly property bool narrow: place.modelData

                x: place.narrow ? pages.width - width : 0
                width: place.narrow ? Theme.scaled(400) : face.twice ? pages.width - Theme.scaled(400) : pages.width
                height: pages.height
                clip: true

                Hairline {
                    visible: place.narrow
                    width: 1
                    height: parent.height
                }
                SearchFace {
                    anchors.fill: parent
                    margin: face.margin
                    column: place.width - 2 * face.margin
                    search: face.search
                    backTo: qsTr("Memories")
                    trying: face.bench.root.trying
                    waitingWords: face.bench.root.waitingWords
                    onTriedAgain: face.bench.root.tryAgain()
                }
            }
        }
    }
}
