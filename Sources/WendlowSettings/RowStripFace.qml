pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// What stands at the top of an open row: what has happened, what that rests on, and what can be done about it.
// With room for it the deeds stand beside a lone sentence, and below everything else.
Strip {
    id: strip

    required property var told

    signal deed(action: int)

    readonly property bool beside: strip.told.lines.length === 0 && strip.width >= Theme.scaled(260) + deeds.width

    tone: strip.told.tone
    text: strip.told.headline
    role: strip.told.lines.length > 0 ? Label.Role.SmallStrong : Label.Role.Small
    reserved: strip.beside && strip.told.actions.length > 0 ? deeds.width : 0

    Repeater {
        model: strip.told.lines

        delegate: Column {
            id: line

            required property var modelData

            width: parent?.width ?? 0
            bottomPadding: 4

            Label {
                width: line.width
                role: Label.Role.Small
                line: Theme.hintLine
                text: line.modelData.text
                wrapMode: Text.Wrap
            }
            Item {
                visible: line.modelData.subject.length > 0
                width: line.width
                height: path.height

                PathLine {
                    id: path
                    width: Math.min(implicitWidth, line.width - (place.text.length > 0 ? place.width + 12 : 0))
                    role: Label.Role.Small
                    line: Theme.hintLine
                    text: line.modelData.shownSubject
                    whole: line.modelData.subject
                    color: Theme.textSecondOnTint
                    Accessible.name: line.modelData.subject
                }
                Label {
                    id: place
                    x: path.width + 12
                    role: Label.Role.Small
                    line: Theme.hintLine
                    text: line.modelData.place
                    Accessible.ignored: place.text.length === 0
                }
            }
        }
    }
    Item {
        visible: !strip.beside && strip.told.actions.length > 0
        width: 1
        height: deeds.height
    }

    Row {
        id: deeds

        parent: strip
        x: strip.beside ? strip.width - width - 5 : strip.begin - 8
        y: strip.beside ? 11 + Math.round((Theme.hintLine - height) / 2) : strip.height - height - 6

        Repeater {
            model: strip.told.actions

            delegate: Button {
                required property var modelData

                kind: Button.Kind.Quiet
                small: true
                text: modelData.words
                hint: modelData.hint
                onClicked: strip.deed(modelData.action)
            }
        }
    }
}
