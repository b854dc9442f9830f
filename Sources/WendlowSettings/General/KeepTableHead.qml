import QtQuick
import WendlowControls
import WendlowSettings

// The words above the columns of the table of disk use.
Item {
    id: head

    required property KeepColumns columns

    implicitHeight: Theme.scaled(36)

    component Head: Label {
        anchors.verticalCenter: parent?.verticalCenter
        role: Label.Role.Caption
        color: Theme.textSecond
        horizontalAlignment: Text.AlignRight
    }

    Head {
        visible: !head.columns.stacked
        x: head.columns.rate
        width: head.columns.rateWidth
        text: qsTr("Avg. rate")
    }
    Head {
        visible: !head.columns.stacked
        x: head.columns.month
        width: head.columns.width
        text: qsTr("Avg. month")
    }
    Head {
        x: head.columns.used
        width: head.columns.width
        text: qsTr("Used")
    }
    Head {
        x: head.columns.keep
        width: head.columns.keepWidth
        text: qsTr("Save?")
    }
}
