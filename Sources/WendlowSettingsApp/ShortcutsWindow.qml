pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// The sheet of the keys: what each does, place by place. Two columns where there is room for them.
Window {
    id: sheet

    // Maps with `place`, `column` and `lines`, which are maps with `title` and `keys`.
    required property var places

    readonly property bool wide: page.width >= Theme.scaled(720)

    width: Theme.scaled(820)
    height: Math.min(Theme.scaled(720), Screen.desktopAvailableHeight - 96)
    minimumWidth: 360
    minimumHeight: 320
    flags: Qt.Dialog | Qt.CustomizeWindowHint | Qt.WindowTitleHint | Qt.WindowCloseButtonHint | Qt.WindowMaximizeButtonHint
    title: qsTr("Keyboard Shortcuts")
    color: Theme.ground

    Shortcut {
        sequence: "Escape"
        onActivated: sheet.close()
    }

    component Places: Column {
        id: column

        required property var those

        spacing: Theme.space24

        Repeater {
            model: column.those

            Column {
                id: place

                required property var modelData

                width: column.width

                Label {
                    width: parent.width
                    bottomPadding: 6
                    role: Label.Role.Section
                    text: place.modelData.place
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                    Accessible.role: Accessible.Heading
                }
                Hairline { width: parent.width }
                Repeater {
                    model: place.modelData.lines

                    ShortcutLine {
                        required property var modelData

                        width: place.width
                        title: modelData.title
                        keys: modelData.keys
                    }
                }
            }
        }
    }

    ScrollPage {
        id: page
        anchors.fill: parent
        columnWidth: page.width
        sideMargin: Theme.space32
        above: Theme.space24
        below: Theme.space24
        focus: true

        Accessible.role: Accessible.List
        Accessible.name: sheet.title

        Item {
            width: parent.width
            implicitHeight: sheet.wide ? Math.max(left.implicitHeight, right.implicitHeight) : left.implicitHeight

            Places {
                id: left
                width: sheet.wide ? Math.floor((parent.width - Theme.space48) / 2) : parent.width
                those: sheet.wide ? sheet.places.filter(place => place.column === 0) : sheet.places
            }
            Places {
                id: right
                visible: sheet.wide
                x: left.width + Theme.space48
                width: left.width
                those: sheet.places.filter(place => place.column === 1)
            }
        }
    }
}
