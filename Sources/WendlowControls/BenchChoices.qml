pragma ComponentBehavior: Bound

import QtQuick

// What filters and picks, in its states: chips, boxes, one of several, the search field, titles of a menu bar.
Column {
    id: choices

    spacing: Theme.space12

    BenchHead {
        width: choices.width
        text: qsTr("Chips: normal, hover, pressed, focused, open, picked, picked and open, disabled")
    }
    Flow {
        width: choices.width
        spacing: Theme.space8

        Repeater {
            model: [{}, { lit: true }, { sunk: true }, { ringed: true }, { open: true }, { picks: 2 }, { picks: 12, open: true }, { off: true }]

            Chip {
                required property var modelData

                text: "owner"
                lit: modelData.lit ?? false
                sunk: modelData.sunk ?? false
                ringed: modelData.ringed ?? false
                open: modelData.open ?? false
                picks: modelData.picks ?? 0
                enabled: modelData.off !== true
            }
        }
        Chip {
            lead: "scope"
            text: "/work/harbour/moorings/lines/spare"
        }
    }
    Row {
        spacing: Theme.space32

        Column {
            id: boxes
            width: Math.floor((choices.width - 2 * Theme.space32) / 3)

            BenchHead {
                width: boxes.width
                topPadding: Theme.space16
                text: qsTr("Check rows")
            }
            Repeater {
                model: [["normal"], ["hover", "lit"], ["pressed", "sunk"], ["focused", "ringed"], ["picked", "on"], ["picked, hover", "on", "lit"], ["words that go on for longer than their row is wide"]]

                CheckRow {
                    required property var modelData

                    width: boxes.width
                    text: modelData[0]
                    count: "12"
                    lit: modelData.includes("lit")
                    sunk: modelData.includes("sunk")
                    ringed: modelData.includes("ringed")
                    on: modelData.includes("on")
                }
            }
        }
        Column {
            id: radios
            width: boxes.width

            BenchHead {
                width: radios.width
                topPadding: Theme.space16
                text: qsTr("One of several")
            }
            Repeater {
                model: [["normal"], ["hover", "lit"], ["pressed", "sunk"], ["focused", "ringed"], ["picked", "on"], ["picked, focused", "on", "ringed"], ["disabled", "off"]]

                ChoiceRow {
                    required property var modelData

                    width: radios.width
                    text: modelData[0]
                    lit: modelData.includes("lit")
                    sunk: modelData.includes("sunk")
                    ringed: modelData.includes("ringed")
                    on: modelData.includes("on")
                    enabled: !modelData.includes("off")
                }
            }
            Item {
                width: 1
                height: Theme.space12
            }
            ChoiceWords {
                choices: [
                    {
                        word: "relevance",
                        picked: false
                    },
                    {
                        word: "newest",
                        picked: true
                    },
                    {
                        word: "oldest",
                        picked: false
                    }
                ]
            }
        }
        Column {
            id: rest
            width: boxes.width
            spacing: Theme.space8

            BenchHead {
                width: rest.width
                topPadding: Theme.space16
                text: qsTr("Search field")
            }
            Repeater {
                model: [["", false, false, true], ["", true, false, true], ["backup", false, true, true], ["backup", false, false, false]]

                SearchField {
                    required property var modelData

                    width: rest.width
                    value: modelData[0]
                    lit: modelData[1]
                    ringed: modelData[2]
                    enabled: modelData[3]
                }
            }
            BenchHead {
                width: rest.width
                topPadding: Theme.space8
                text: qsTr("Menu bar, sites, at work")
            }
            Row {
                MenuTitle {
                    text: "Wendlow"
                    strong: true
                }
                MenuTitle {
                    text: "Edit"
                    mark: 0
                }
                MenuTitle {
                    text: "World"
                    open: true
                }
            }
            Row {
                spacing: Theme.space12

                Repeater {
                    model: ["W", "é", "7"]

                    SiteTile {
                        required property string modelData

                        letter: modelData
                        picture: undefined
                    }
                }
                Spinner {}
            }
        }
    }
}
