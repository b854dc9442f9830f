import QtQuick
import WendlowControls

// What one share of a stacked bar is: its dot, its name, and what stands beside it.
StatsReading {
    id: legend

    required property color ink
    required property string name
    required property string beside

    implicitWidth: title.x + title.implicitWidth + 6 + rest.implicitWidth
    implicitHeight: Theme.lines[Label.Role.Small]

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        radius: 4
        color: legend.ink
    }
    Label {
        id: title
        x: Theme.space16
        width: Math.min(title.implicitWidth, legend.width - x)
        role: Label.Role.SmallStrong
        text: legend.name
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    Label {
        id: rest
        x: title.x + title.width + 6
        width: Math.max(0, Math.min(rest.implicitWidth, legend.width - x))
        role: Label.Role.Small
        text: legend.beside
        color: Theme.textSecond
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
