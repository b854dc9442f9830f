pragma ComponentBehavior: Bound

import QtQuick

// The bench's left half: what can be pressed, and menus and the sidebar.
Column {
    id: half

    BenchHead {
        width: half.width
        text: qsTr("Buttons and switches")
    }
    Item {
        width: half.width
        height: Theme.scaled(20)

        Repeater {
            model: [qsTr("normal"), qsTr("hover"), qsTr("pressed"), qsTr("focused"), qsTr("disabled"), qsTr("busy")]

            Label {
                required property string modelData
                required property int index

                x: Theme.scaled(116) + Theme.scaled(107.4 * index)
                role: Label.Role.Caption
                text: modelData
                color: Theme.textSecond
            }
        }
    }
    BenchRow {
        text: qsTr("primary")
        control: Component {
            Button {
                kind: Button.Kind.Primary
                text: "Save"
            }
        }
    }
    BenchRow {
        text: qsTr("secondary")
        control: Component { Button { text: "Copy" } }
    }
    BenchRow {
        text: qsTr("with icon")
        control: Component {
            Button {
                text: "Copy"
                iconName: "copy"
            }
        }
    }
    BenchRow {
        text: qsTr("small")
        control: Component {
            Button {
                text: "Add"
                small: true
            }
        }
    }
    BenchRow {
        text: qsTr("quiet")
        control: Component {
            Button {
                kind: Button.Kind.Quiet
                text: "select all"
            }
        }
    }
    BenchRow {
        text: qsTr("icon")
        control: Component {
            IconButton {
                text: "Rename"
                iconName: "pencil"
            }
        }
    }
    BenchRow {
        text: qsTr("switch, off")
        control: Component { BenchSwitch { on: false } }
    }
    BenchRow {
        text: qsTr("switch, on")
        control: Component { BenchSwitch { on: true } }
    }
    Item {
        width: 1
        height: Theme.space24
    }
    BenchHead {
        width: half.width
        text: qsTr("Menus, sidebar")
    }
    Row {
        spacing: Theme.space16

        BenchMenu {}
        BenchSidebar {}
    }
}
