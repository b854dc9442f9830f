import QtQuick
import QtQuick.Templates as T

// A button with words, an icon before them if it has one. While busy it is disabled and a spinner stands
// before its word; who binds `enabled` says so there too.
T.Button {
    id: button

    enum Kind { Primary, Secondary, Quiet }

    property int kind: Button.Kind.Secondary
    property bool small: false
    property bool busy: false
    // At work as well, but it keeps the focus that it has; whoever hears of its press does nothing then.
    property bool working: false
    property string iconName
    // What a screen reader hears besides the word, when the word alone does not say what is meant.
    property string hint

    // How the button shows itself; the bench holds these still.
    property bool lit: button.hovered
    property bool sunk: button.down
    property bool ringed: button.visualFocus

    readonly property bool primary: button.kind === Button.Kind.Primary
    readonly property bool quiet: button.kind === Button.Kind.Quiet
    readonly property color ink: !button.enabled ? Theme.textSecondOnTint : button.primary ? Theme.inkOnAccent : button.quiet ? Theme.accent : Theme.text
    readonly property color fill: button.quiet ? "transparent" : !button.enabled ? Theme.well : button.primary ? Theme.accent : Theme.surface
    readonly property color shade: button.primary ? (button.sunk ? Theme.accentPressed : Theme.accentHover) : (button.sunk ? Theme.pressed : Theme.hover)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: button.small ? Theme.smallButtonHeight : Theme.buttonHeight
    horizontalPadding: button.quiet ? 8 : button.small ? 12 : 14
    enabled: !button.busy
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: button.text
    Accessible.description: button.working ? qsTr("Working…") : button.hint
    Accessible.onPressAction: if (button.enabled)
        button.clicked()
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    contentItem: ButtonFace {
        text: button.text
        iconName: button.iconName
        busy: button.busy || button.working
        role: button.small ? Label.Role.SmallStrong : Label.Role.Strong
        ink: button.ink
    }

    background: Rectangle {
        color: button.fill
        radius: Theme.radiusButton

        HoverFill {
            anchors.fill: parent
            radius: Theme.radiusButton
            lit: button.enabled && (button.lit || button.sunk)
            shade: button.shade
        }
        Rectangle {
            visible: !button.quiet && !(button.primary && button.enabled)
            anchors.fill: parent
            color: "transparent"
            radius: Theme.radiusButton
            border.width: Theme.strokeHairline
            border.color: button.enabled ? Theme.edge : Theme.hairline
        }
        FocusRing { shown: button.ringed }
    }

    Hint {
        text: button.text
        wanted: (button.hovered || button.visualFocus) && (button.contentItem as ButtonFace).truncated
    }
}
