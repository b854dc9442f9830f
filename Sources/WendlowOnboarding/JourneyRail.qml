pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// The steps of the journey, one below the other. They tell where a person stands, and none can be pressed.
Rectangle {
    id: rail

    // As JourneyRoot has them: a list of maps with `title`, `mark` and `spoken`.
    required property var steps
    // Where a person stands, for a screen reader.
    required property string spoken
    // No room for names: they are told to whoever asks.
    property bool narrow: false

    readonly property int pitch: Theme.scaled(44)

    implicitWidth: rail.narrow ? Theme.scaled(60) : Theme.scaled(208)
    color: Theme.sidebar

    Accessible.role: Accessible.List
    Accessible.name: rail.spoken.length > 0 ? qsTr("Setup, %1").arg(rail.spoken) : qsTr("Setup")

    Hairline {
        anchors.right: parent.right
        height: parent.height
    }
    Repeater {
        model: rail.steps

        delegate: Item {
            id: step

            required property int index
            required property var modelData

            readonly property string mark: step.modelData.mark
            readonly property bool current: step.mark === "current"

            x: Theme.scaled(20)
            y: rail.pitch * (step.index + 1)
            width: rail.width - step.x - Theme.space8
            height: circle.size

            Accessible.role: Accessible.ListItem
            Accessible.name: step.modelData.spoken

            StepMark {
                id: circle
                mark: step.mark
            }
            Label {
                id: name
                visible: !rail.narrow
                x: circle.width + Theme.space12
                width: parent.width - x
                anchors.verticalCenter: circle.verticalCenter
                role: step.current ? Label.Role.Strong : Label.Role.Body
                text: step.modelData.title
                color: step.current ? Theme.text : Theme.textSecondOnTint
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
            // To the next one
            Rectangle {
                visible: step.index + 1 < rail.steps.length
                x: Math.round((circle.width - width) / 2)
                y: circle.height + Theme.space4
                width: 1
                height: rail.pitch - circle.height - 2 * Theme.space4
                color: step.mark === "done" ? Theme.accentMid : Theme.edge
            }
            HoverHandler { id: pointer }
            Hint {
                text: step.modelData.title
                wanted: (rail.narrow || name.truncated) && pointer.hovered
            }
        }
    }
}
