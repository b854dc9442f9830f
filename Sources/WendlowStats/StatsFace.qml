pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowStats

// The content of the Stats window: the day bar, and the cards of that day below it. Every card has its height
// from the start, so that nothing moves when an answer comes.
FocusScope {
    id: face

    required property StatsRoot root
    // A picture is taken, and the focus may be nowhere.
    property bool posing: false

    // One column in place of two where there is no room for both.
    readonly property bool narrow: face.width < Theme.scaled(700)
    readonly property int gap: Theme.space16
    readonly property int margin: Math.max(Theme.space24, Math.round((face.width - 1200) / 2))

    onRootChanged: face.root.appear()
    Component.onCompleted: face.root.appear()

    Keys.onPressed: event => {
        const pressed = id => Shortcuts.isPressed(id, event.key, event.modifiers);
        event.accepted = true;
        if (pressed(Shortcuts.PreviousDay))
            face.root.goToPreviousDay();
        else if (pressed(Shortcuts.NextDay))
            face.root.goToNextDay();
        else if (pressed(Shortcuts.Today))
            face.root.goToToday();
        else
            event.accepted = false;
    }
    Shortcut {
        sequences: Shortcuts.of(Shortcuts.Refresh)
        onActivated: face.root.refresh()
    }

    // A row goes with its day, and the way back to today with being there.
    FocusKeeper {
        content: face
        onLost: if (!face.posing)
            bar.take()
    }
    Connections {
        target: face.root

        function onSaid(words: string): void {
            Speech.say(words);
        }
    }

    DayBar {
        id: bar
        width: parent.width
        margin: face.margin
        root: face.root
        focus: true
        Keys.forwardTo: [page]
    }
    ScrollPage {
        id: page
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        sideMargin: face.margin
        columnWidth: 1200
        above: 0
        below: Theme.space32

        Column {
            id: cards
            width: parent.width
            spacing: face.gap

            readonly property real half: Math.floor((cards.width - face.gap) / 2)

            Grid {
                columns: face.narrow ? 1 : 2
                spacing: face.gap

                WorkingDayCard {
                    width: face.narrow ? cards.width : cards.width - face.gap - streak.width
                    root: face.root
                }
                StreakCard {
                    id: streak
                    width: face.narrow ? cards.width : Theme.scaled(232)
                    root: face.root
                    oneLine: face.narrow
                }
            }
            Grid {
                columns: face.narrow ? 1 : 2
                spacing: face.gap

                BarsCard {
                    width: face.narrow ? cards.width : cards.half
                    title: face.root.appsTitle
                    words: face.root.appsWords
                    bars: face.root.apps
                    loading: face.root.loading
                    listName: qsTr("Apps")
                }
                BarsCard {
                    width: face.narrow ? cards.width : cards.half
                    title: face.root.webTitle
                    words: face.root.webWords
                    bars: face.root.web
                    loading: face.root.loading
                    listName: qsTr("Sites")
                    signed: true
                }
            }
            AttentionCard {
                width: parent.width
                root: face.root
                stacked: face.narrow
            }
            AllTimeCard {
                width: parent.width
                root: face.root
                narrow: face.narrow
            }
        }
    }
}
