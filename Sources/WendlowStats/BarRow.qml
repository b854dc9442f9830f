import QtQuick
import WendlowControls
import WendlowStats

// One app or site: its name, its bar, its time. The bar grows once, when the row comes.
StatsReading {
    id: row

    required property string name
    required property real fraction
    required property string label
    required property string letter
    required property var picture
    required property bool signed

    // The tip and what is spoken are roles of the row too.
    required tip

    property real grown: 0

    Component.onCompleted: row.grown = 1
    Behavior on grown {
        enabled: Theme.counting > 0

        NumberAnimation {
            duration: Theme.counting
            easing.type: Easing.OutQuad
        }
    }

    SiteTile {
        id: sign
        anchors.verticalCenter: parent.verticalCenter
        visible: row.signed
        letter: row.letter
        picture: row.picture
    }
    Label {
        id: words
        x: row.signed ? sign.width + 6 : 0
        width: Theme.scaled(row.signed ? 144 : 96) - x
        anchors.verticalCenter: parent.verticalCenter
        role: Label.Role.Small
        text: row.name
        elide: Text.ElideRight
        maximumLineCount: 1
        Accessible.ignored: true
    }
    Rectangle {
        readonly property real room: time.x - Theme.space12 - x

        x: words.x + words.width + Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        width: row.fraction > 0 ? Math.max(2, Math.round(room * row.fraction * row.grown)) : 0
        height: 6
        radius: 3
        color: Theme.accent
    }
    Label {
        id: time
        x: row.width - width
        width: Theme.scaled(52)
        anchors.verticalCenter: parent.verticalCenter
        role: Label.Role.Small
        text: row.label
        color: Theme.textSecond
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
