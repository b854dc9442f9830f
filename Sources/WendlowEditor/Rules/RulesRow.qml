pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorRules

// A line of the face of the rules, of any kind.
RulesLine {
    id: line

    implicitHeight: part.count > 0 ? (part.itemAt(0) as Item)?.implicitHeight ?? 0 : 0

    Repeater {
        id: part
        model: 1
        delegate: line.kind === RulesRows.Rule ? rules : line.kind === RulesRows.Level ? levels : line.kind === RulesRows.Module ? modules : line.kind === RulesRows.Group ? groups : line.kind === RulesRows.Section ? sections : line.kind === RulesRows.Strip ? strips : notes
    }

    Component {
        id: rules

        RulesRule {
            width: line.width
            row: line
        }
    }
    Component {
        id: levels

        RulesLevel {
            width: line.width
            row: line
        }
    }
    Component {
        id: modules

        RulesModule {
            width: line.width
            row: line
        }
    }
    Component {
        id: groups

        RulesGroup {
            width: line.width
            row: line
        }
    }
    Component {
        id: sections

        RulesSection {
            width: line.width
            row: line
        }
    }
    Component {
        id: strips

        Item {
            width: line.width
            implicitHeight: strip.height + 8

            Strip {
                id: strip
                y: 8
                width: parent.width
                height: implicitHeight
                tone: line.warns ? Strip.Tone.Warning : Strip.Tone.Information
                sign: line.warns ? "warn" : "info"
                // The sign says it already.
                text: line.words.replace(/^⚠\s*/, "")
                action: line.canRetry ? qsTr("Try again") : ""
                Accessible.name: line.words
                onActed: line.activate()

                FocusRing { shown: line.ringed }
            }
        }
    }
    Component {
        id: notes

        Item {
            id: noted

            // A label's own line is another thing.
            readonly property string words: line.words
            readonly property bool apart: line.apart

            width: line.width
            implicitHeight: note.height + (noted.apart ? 8 : 10)

            Label {
                id: note
                y: noted.apart ? 8 : 0
                width: parent.width
                role: Label.Role.Small
                line: Theme.hintLine
                text: noted.words
                color: Theme.textSecond
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
        }
    }
}
