import QtQuick
import QtQuick.Templates as T
import WendlowControls

// The button of a question whose yes cannot be taken back. Never where the focus begins.
T.Button {
    id: button

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.buttonHeight
    horizontalPadding: 14
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: button.text
    Accessible.onPressAction: if (button.enabled)
        button.clicked()
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    contentItem: ButtonFace {
        text: button.text
        iconName: ""
        busy: false
        role: Label.Role.Strong
        ink: Theme.inkOnDestructive
    }

    background: Rectangle {
        radius: Theme.radiusButton
        color: button.down ? Theme.destructivePressed : button.hovered ? Theme.destructiveHover : Theme.destructive

        FocusRing { shown: button.visualFocus }
    }
}
