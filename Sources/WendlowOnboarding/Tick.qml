import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A check box with its words at the margin, of which some may be a link. It shows what its owner says; a press
// asks for the other state and changes nothing by itself.
T.CheckBox {
    id: tick

    required property bool on
    // Stands somewhere in the words; empty for none.
    property string link

    property bool lit: tick.hovered
    property bool ringed: tick.visualFocus

    signal linkOpened

    readonly property int split: tick.link.length > 0 ? tick.text.lastIndexOf(tick.link) : -1

    implicitHeight: Math.max(Theme.scaled(32), whole.visible ? whole.height + Theme.scaled(12) : 0)
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    // Not `checkState`: what is set by that alone is never told to a screen reader.
    checked: tick.on
    nextCheckState: () => tick.checkState

    Accessible.name: tick.text
    Accessible.checked: tick.on
    Accessible.onPressAction: tick.clicked()
    Accessible.onToggleAction: tick.clicked()
    Keys.onReturnPressed: tick.clicked()
    Keys.onEnterPressed: tick.clicked()

    indicator: null
    contentItem: Item {}
    background: Item {}

    CheckBoxFace {
        id: box
        y: Math.round((Theme.scaled(32) - height) / 2)
        on: tick.on
        lit: tick.lit
        enabled: tick.enabled

        FocusRing {
            shown: tick.ringed
            around: Theme.radiusTag
        }
    }
    Label {
        id: whole
        visible: tick.split < 0
        x: box.width + Theme.space12
        y: Math.round((Theme.scaled(32) - line) / 2)
        width: tick.width - x
        text: tick.text
        color: tick.enabled ? Theme.text : Theme.textSecondOnTint
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Row {
        visible: tick.split >= 0
        x: box.width + Theme.space12
        anchors.verticalCenter: box.verticalCenter

        Label {
            text: tick.text.slice(0, tick.split)
            Accessible.ignored: true
        }
        LinkWord {
            text: tick.link
            onOpened: tick.linkOpened()
        }
        Label {
            text: tick.text.slice(tick.split + tick.link.length)
            Accessible.ignored: true
        }
    }
}
