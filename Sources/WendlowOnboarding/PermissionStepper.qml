pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// The three permissions side by side, each below the circle of its mark, and lines from one to the next.
Item {
    id: stepper

    required property JourneyRoot root

    readonly property var marks: stepper.root.stepper
    readonly property int circle: Theme.scaled(24)
    readonly property real column: stepper.width / Math.max(1, stepper.marks.length)
    // They change with the marks.
    readonly property var lines: stepper.marks.length > 0 ? stepper.root.stepperLines(stepper.column, stepper.circle, Theme.space8) : []

    implicitHeight: stepper.circle + Theme.space8 + names.height

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Permissions")

    Repeater {
        model: stepper.lines

        delegate: Rectangle {
            id: line

            required property var modelData

            x: Math.round(line.modelData.x)
            y: Math.round(stepper.circle / 2)
            width: Math.round(line.modelData.width)
            height: 1
            color: line.modelData.done ? Theme.accentMid : Theme.edge
        }
    }
    Row {
        id: names
        y: stepper.circle + Theme.space8

        Repeater {
            model: stepper.marks

            delegate: Item {
                id: permission

                required property var modelData

                readonly property bool current: permission.modelData.mark === "current"

                width: stepper.column
                height: word.height

                Accessible.role: Accessible.ListItem
                Accessible.name: permission.modelData.spoken

                StepMark {
                    x: Math.round((parent.width - width) / 2)
                    y: -Theme.space8 - height
                    mark: permission.modelData.mark
                    size: stepper.circle
                }
                Label {
                    id: word
                    x: 2
                    width: parent.width - 2 * x
                    role: permission.current ? Label.Role.SmallStrong : Label.Role.Small
                    text: permission.modelData.title
                    color: permission.current ? Theme.text : Theme.textSecond
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    Accessible.ignored: true
                }
            }
        }
    }
}
