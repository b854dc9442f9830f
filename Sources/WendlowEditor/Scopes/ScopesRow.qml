pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorScopes

// A scope: its path, what is filed exactly there, a line for each folder, and below them what can be done
// where it is selected.
T.ItemDelegate {
    id: row

    required property int index
    required property string path
    required property string above
    required property string name
    required property int depth
    required property string counts
    required property var folders
    required property var allFolders
    required property string rest
    required property string told

    required property ScopesFaceModel face
    required property bool selected
    required property bool ringed

    // The list is to select this row, and to have the focus.
    signal claimed
    // One of the actions has the focus: it is to be in sight, in a list lower than the row too.
    signal reached(Item action)

    readonly property int line: Theme.scaled(36)
    readonly property int folderLine: Theme.scaled(20)
    // A deep scope in a narrow window still has room for its words.
    readonly property int indent: 12 + Math.min(16 * row.depth, Math.round(row.width / 4))
    readonly property color quiet: row.selected || row.hovered ? Theme.textSecondOnTint : Theme.textSecond

    // The folders begin where the words above them end.
    readonly property int below: paths.count > 0 ? lines.height - 6 : 0
    readonly property real pathWidth: above.implicitWidth + name.implicitWidth

    implicitHeight: row.line + row.below + (actions.count > 0 ? actions.itemAt(0)?.height ?? 0 : 0) + 1
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    text: row.path

    Accessible.role: Accessible.ListItem
    Accessible.name: row.path
    Accessible.description: qsTr("%1, Return renames it").arg(row.told)
    Accessible.selectable: true
    Accessible.selected: row.selected
    Accessible.onPressAction: row.claimed()
    onPressed: row.claimed()

    HoverFill {
        anchors.fill: parent
        anchors.bottomMargin: 1
        radius: Theme.radiusButton
        lit: row.hovered && !row.selected
    }
    Rectangle {
        anchors.fill: parent
        anchors.bottomMargin: 1
        visible: row.selected
        radius: Theme.radiusButton
        color: Theme.accentSoft

        FocusRing {
            shown: row.ringed
            inside: true
        }
    }
    Label {
        id: above
        x: row.indent
        y: Math.round((row.line - height) / 2)
        width: Math.max(0, Math.min(implicitWidth, counts.x - x - name.width - Theme.space16))
        text: row.above
        color: row.quiet
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: name
        x: above.x + above.width
        y: above.y
        width: Math.min(implicitWidth, counts.x - row.indent - Theme.space16)
        role: Label.Role.Strong
        text: row.name
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: counts
        x: row.width - width - 12
        y: Math.round((row.line - height) / 2)
        width: Math.min(implicitWidth, Math.max(Math.round(row.width * 0.45), Math.floor(row.width - row.indent - row.pathWidth - 12 - Theme.space16)))
        role: Label.Role.Small
        text: row.counts
        color: row.quiet
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Column {
        id: lines
        x: row.indent
        y: row.line - 6
        width: row.width - x - 12
        bottomPadding: Theme.space8

        Repeater {
            id: paths
            model: row.selected ? row.allFolders : row.folders

            Item {
                id: folder

                required property string modelData

                width: lines.width
                height: row.folderLine

                Icon {
                    y: Math.round((parent.height - height) / 2)
                    size: 14
                    name: "folder"
                    color: row.quiet
                }
                Label {
                    x: 20
                    y: Math.round((parent.height - height) / 2)
                    width: parent.width - x
                    role: Label.Role.Small
                    text: folder.modelData
                    color: row.quiet
                    elide: Text.ElideMiddle
                    horizontalAlignment: Text.AlignLeft
                    Accessible.ignored: true
                }
            }
        }
        Label {
            visible: row.rest.length > 0 && !row.selected
            leftPadding: 20
            role: Label.Role.Small
            text: row.rest
            color: row.quiet
            Accessible.ignored: true
        }
    }
    // Made where they are wanted: one row is selected, and thousands are not.
    Only {
        id: actions
        wanted: row.selected

        Flow {
            x: row.indent
            y: row.line + row.below
            width: row.width - x - 12
            spacing: Theme.space8
            bottomPadding: Theme.space12

            Button {
                id: map
                small: true
                onActiveFocusChanged: if (map.activeFocus)
                    row.reached(map)
                text: qsTr("Map folder…")
                KeyNavigation.right: rename
                onClicked: row.face.mapFolder()
            }
            Button {
                id: rename
                small: true
                onActiveFocusChanged: if (rename.activeFocus)
                    row.reached(rename)
                text: qsTr("Rename… (writes a script)")
                KeyNavigation.left: map
                KeyNavigation.right: retire
                onClicked: row.face.rename()
            }
            Button {
                id: retire
                small: true
                onActiveFocusChanged: if (retire.activeFocus)
                    row.reached(retire)
                text: qsTr("Retire… (writes a script)")
                KeyNavigation.left: rename
                onClicked: row.face.retire()
            }
        }
    }
    Hint {
        text: above.width < above.implicitWidth || name.truncated ? row.path : counts.truncated ? row.counts : ""
        leading: true
        wanted: row.hovered || row.ringed
    }
}
