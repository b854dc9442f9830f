import QtQuick
import QtQuick.Templates as T

// A few words beside what the pointer rests on, in the colours of the ground turned round.
T.ToolTip {
    id: tip

    property int widest: Theme.scaled(480)
    // Begins where its parent does, and not in its middle.
    property bool leading: false
    readonly property FontMetrics metrics: FontMetrics {
        id: metrics
        font: Theme.fonts[Label.Role.Caption]
    }

    x: parent && !tip.leading ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + 6 : 0
    // Not the width of what is shown: wrapped, that depends on the width it is given.
    implicitWidth: Math.min(Math.ceil(Math.max(...tip.text.split("\n").map(line => metrics.advanceWidth(line)))) + 1, tip.widest) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 8
    verticalPadding: 4
    margins: 8
    delay: Theme.toolTipDelay
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Label {
        role: Label.Role.Caption
        text: tip.text
        color: Theme.ground
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        maximumLineCount: 12
    }

    background: Rectangle {
        color: Theme.text
        radius: Theme.radiusTile
    }
}
