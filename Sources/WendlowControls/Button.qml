import QtQuick
import QtQuick.Templates as T

// A button with words, an icon before them if it has one. While busy it is disabled and a spinner stands
// before its word; who binds `enabled` says so there too.
T.Button {
    id: control

    enum Kind { Primary, Secondary, Quiet }

    property int kind: Button.Kind.Secondary
    property bool small: false
    property bool busy: false
    property string iconName
    // What a screen reader hears besides the word, when the word alone does not say what is meant.
    property string hint

    // How the button shows itself; the bench holds these still.
    property bool lit: control.hovered
    property bool sunk: control.down
    property bool ringed: control.visualFocus

    readonly property bool primary: control.kind === Button.Kind.Primary
    readonly property bool quiet: control.kind === Button.Kind.Quiet
    readonly property color ink: !control.enabled ? Theme.textSecondOnTint : control.primary ? Theme.onAccent : control.quiet ? Theme.accent : Theme.text
    readonly property color fill: control.quiet ? "transparent" : !control.enabled ? Theme.well : control.primary ? Theme.accent : Theme.surface
    readonly property color shade: control.primary ? (control.sunk ? Theme.accentPressed : Theme.accentHover) : (control.sunk ? Theme.pressed : Theme.hover)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: control.small ? Theme.smallButtonHeight : Theme.buttonHeight
    horizontalPadding: control.quiet ? 8 : control.small ? 12 : 15
    enabled: !control.busy
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: control.text
    Accessible.description: control.hint
    Accessible.onPressAction: control.click()
    Keys.onReturnPressed: control.click()
    Keys.onEnterPressed: control.click()

    contentItem: Item {
        implicitWidth: row.width
        implicitHeight: row.height

        Row {
            id: row
            anchors.centerIn: parent
            spacing: 8

            Spinner {
                visible: control.busy
                size: 14
                anchors.verticalCenter: parent.verticalCenter
            }
            Icon {
                visible: control.iconName.length > 0 && !control.busy
                name: control.iconName
                color: control.ink
                anchors.verticalCenter: parent.verticalCenter
            }
            Label {
                role: control.small ? Label.Role.SmallStrong : Label.Role.Strong
                text: control.text
                color: control.ink
                Accessible.ignored: true
            }
        }
    }

    background: Rectangle {
        color: control.fill
        radius: Theme.radiusButton

        HoverFill {
            anchors.fill: parent
            radius: Theme.radiusButton
            lit: control.enabled && (control.lit || control.sunk)
            shade: control.shade
        }
        Rectangle {
            visible: !control.quiet && !(control.primary && control.enabled)
            anchors.fill: parent
            color: "transparent"
            radius: Theme.radiusButton
            border.width: Theme.strokeHairline
            border.color: control.enabled ? Theme.edge : Theme.hairline
        }
        FocusRing { shown: control.ringed }
    }
}
