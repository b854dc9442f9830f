pragma ComponentBehavior: Bound

import QtQuick

// The bench's right half: what only speaks.
Column {
    id: half

    spacing: 8

    BenchHead {
        width: half.width
        text: qsTr("Note strip: information, warning, refusal")
    }
    Strip {
        width: half.width
        text: "Migration script written to ~/.wendlow/migrations/migrate-scope-rename-studio-2026-11-19.py. Read it, then run it — the Editor never performs a scope move itself."
    }
    Strip {
        width: half.width
        tone: Strip.Tone.Warning
        text: "Cursor is now 2.1; the Wendlow hook entry on this Mac was proven against 2.0"
    }
    Strip {
        width: half.width
        tone: Strip.Tone.Refusal
        text: "this file did not read as JSON, so nothing was written"
    }
    BenchHead {
        width: half.width
        topPadding: Theme.space16
        text: qsTr("Tiles, mark, chevrons, tooltip")
    }
    Row {
        spacing: Theme.space12

        Repeater {
            model: ["tool-claude", "tool-codex", "tool-cursor", "tool-opencode", ""]

            AppTile {
                required property string modelData

                asset: modelData
                glyph: "terminal"
            }
        }
        StateMark {
            anchors.verticalCenter: parent.verticalCenter
            text: "Not as Wendlow left it"
        }
        Disclosure {
            anchors.verticalCenter: parent.verticalCenter
            open: false
            text: "Show"
        }
        Disclosure {
            anchors.verticalCenter: parent.verticalCenter
            open: true
            text: "Hide"
        }
    }
    Rectangle {
        width: tip.width + 16
        height: Theme.scaled(24)
        radius: Theme.radiusTile
        color: Theme.text

        Label {
            id: tip
            anchors.centerIn: parent
            role: Label.Role.Caption
            text: "Delete this line"
            color: Theme.ground
        }
    }
    BenchHead {
        width: half.width
        topPadding: Theme.space16
        text: qsTr("Empty, loading, failed")
    }
    Repeater {
        model: [["doc", "Nothing here yet.", false], ["", "Reading your memories…", true], ["warn", "Wendlow isn’t running — start it to access your memory.", false]]

        Card {
            id: stage

            required property var modelData

            width: half.width
            height: Theme.scaled(76)
            color: "transparent"

            EmptyState {
                anchors.centerIn: parent
                width: parent.width - 40
                iconName: stage.modelData[0]
                text: stage.modelData[1]
                busy: stage.modelData[2]
                failed: stage.modelData[0] === "warn"
            }
        }
    }
    BenchHead {
        width: half.width
        topPadding: Theme.space16
        text: qsTr("Type")
    }
    Repeater {
        model: ["Display 40", "Title 22", "Heading 15", "Section 13", "Body 13", "Strong 13", "Small 12", "Small strong 12", "Small bold 12", "Fine 11", "Caption 11", "Group title 11", "EYEBROW 11"]

        Label {
            required property string modelData
            required property int index

            role: index
            text: modelData
        }
    }
}
