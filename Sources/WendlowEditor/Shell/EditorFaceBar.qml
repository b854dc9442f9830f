pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor

// The bar over a face, with the chip that says which scope is looked into.
Item {
    id: bar

    required property EditorFaceBarModel model
    required property int margin
    required property int column
    required property bool showsChip

    implicitHeight: 48

    Chip {
        id: chip
        x: bar.margin
        anchors.verticalCenter: parent.verticalCenter
        visible: bar.showsChip
        widest: Math.min(420, bar.column)
        lead: qsTr("scope:")
        text: bar.model.label
        picked: bar.model.narrowed
        open: bar.model.pickerOpen
        onClicked: bar.model.pickerOpen = !bar.model.pickerOpen

        Only {
            wanted: bar.model.pickerOpen

            ScopeMenu {
                model: bar.model
                onExited: chip.forceActiveFocus(Qt.TabFocusReason)
            }
        }
    }
    Hairline {
        y: parent.height - 1
        width: parent.width
    }
}
