pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// The values of one filter to pick from, in columns.
Rectangle {
    id: panel

    required property FilterBarModel model
    required property int tallest

    readonly property int columns: panel.width >= 560 ? 3 : panel.width >= 340 ? 2 : 1
    readonly property int lines: Math.ceil((values.count + (panel.model.panelPicked ? 1 : 0)) / panel.columns)

    implicitHeight: Math.max(48, Math.min(panel.lines * 32 + 18, panel.tallest))
    radius: Theme.radiusCard
    color: Theme.surface
    border.width: Theme.strokeHairline
    border.color: Theme.edge

    Accessible.role: Accessible.Grouping
    Accessible.name: panel.model.panelLabel

    Keys.onEscapePressed: panel.model.closePanel()

    GridView {
        id: values
        x: 9
        y: 9
        width: parent.width - 18
        height: parent.height - 18
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        cellWidth: Math.floor(values.width / panel.columns)
        cellHeight: 32
        keyNavigationEnabled: false
        // "clear" takes the last cell.
        bottomMargin: panel.model.panelPicked && values.count % panel.columns === 0 ? 32 : 0
        model: panel.model.values

        T.ScrollBar.vertical: ScrollBar {}

        delegate: CheckRow {
            id: value

            required property int index
            required property string title
            required property bool picked

            required count
            required tip

            width: values.cellWidth
            text: value.title
            on: value.picked
            onClicked: panel.model.toggleValue(value.index)
            onActiveFocusChanged: if (value.activeFocus)
                values.positionViewAtIndex(value.index, GridView.Contain)
        }
    }
    Button {
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 11
        visible: panel.model.panelPicked
        kind: Button.Kind.Quiet
        small: true
        text: qsTr("clear")
        hint: qsTr("Clears %1").arg(panel.model.panelLabel)
        onClicked: panel.model.clearPanel()
    }
}
