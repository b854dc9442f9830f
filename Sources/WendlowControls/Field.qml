pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// One line to write in. Its owner says what it holds; what is typed is told, so that a text being typed is
// never overwritten by an answer.
T.TextField {
    id: field

    property string value
    property string prompt
    // What is written cannot stay so; the sentence about it stands below, where its owner puts it.
    property bool failing: false

    property bool lit: field.hovered
    property bool ringed: field.activeFocus

    signal typed(string text)

    implicitWidth: Theme.scaled(200)
    implicitHeight: Theme.scaled(32)
    leftPadding: 10
    rightPadding: 10
    topPadding: 0
    bottomPadding: 0
    verticalAlignment: TextInput.AlignVCenter
    color: field.enabled ? Theme.text : Theme.textSecondOnTint
    font: Theme.fonts[Label.Role.Body]
    selectByMouse: true
    selectionColor: Theme.accentSoft
    selectedTextColor: Theme.text
    hoverEnabled: true
    renderType: Text.NativeRendering

    Accessible.description: field.failing ? qsTr("Not valid") : field.prompt

    Component.onCompleted: field.text = field.value
    onValueChanged: if (field.text !== field.value)
        field.text = field.value
    onTextEdited: field.typed(field.text)

    cursorDelegate: Caret { input: field }

    background: Rectangle {
        radius: Theme.radiusButton
        color: field.enabled ? Theme.surface : Theme.well
        border.width: field.ringed || field.failing ? Theme.strokeFocus : Theme.strokeHairline
        border.color: field.failing ? Theme.refusal : field.ringed ? Theme.accent : !field.enabled ? Theme.hairline : field.lit ? Theme.control : Theme.edge
    }

    Label {
        x: field.leftPadding
        width: parent.width - 2 * x
        anchors.verticalCenter: parent.verticalCenter
        visible: field.text.length === 0 && field.preeditText.length === 0
        text: field.prompt
        color: field.enabled ? Theme.textSecond : Theme.textSecondOnTint
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
