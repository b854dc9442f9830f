import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A button that is one icon. Its text is its name for a screen reader and its tooltip.
T.AbstractButton {
    id: control

    required property string iconName
    property int size: Theme.scaled(28)
    property int iconSize: Theme.iconSize
    property bool busy: false
    property string tip: control.text

    property bool lit: control.hovered
    property bool sunk: control.down
    property bool ringed: control.visualFocus

    readonly property color ink: !control.enabled ? Theme.edge : (control.lit || control.sunk) ? Theme.text : Theme.textSecond

    implicitWidth: control.size
    implicitHeight: control.size
    enabled: !control.busy
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: control.text
    Accessible.onPressAction: if (control.enabled)
        control.clicked()
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    contentItem: Item {
        Icon {
            visible: !control.busy
            anchors.centerIn: parent
            name: control.iconName
            size: control.iconSize
            color: control.ink
        }
        Spinner {
            visible: control.busy
            anchors.centerIn: parent
            size: control.iconSize
        }
    }

    background: HoverFill {
        radius: Theme.radiusButton
        lit: control.enabled && (control.lit || control.sunk)
        shade: control.sunk ? Theme.pressed : Theme.hover

        FocusRing { shown: control.ringed }
    }

    Hint {
        text: control.tip
        wanted: control.hovered || control.visualFocus
    }
}
