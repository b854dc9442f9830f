pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// Where a person types what to look for: a glass, the words, and a cross that empties it. Its owner says
// what it holds; what is typed is told, so that a text being typed is never overwritten by an answer.
T.TextField {
    id: field

    property string value
    property string prompt: qsTr("Search")

    property bool lit: field.hovered
    property bool ringed: field.activeFocus

    signal typed(string text)

    implicitWidth: 200
    implicitHeight: 32
    leftPadding: 35
    rightPadding: field.text.length > 0 ? 34 : 10
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

    Accessible.name: field.prompt
    Accessible.searchEdit: true

    onValueChanged: if (field.text !== field.value)
        field.text = field.value
    onTextEdited: field.typed(field.text)

    function empty(): void {
        field.typed("");
        field.text = "";
        field.forceActiveFocus(Qt.MouseFocusReason);
    }

    cursorDelegate: Caret { field: field }

    background: Rectangle {
        radius: Theme.radiusButton
        color: field.enabled ? Theme.surface : Theme.well
        border.width: field.ringed ? Theme.strokeFocus : Theme.strokeHairline
        border.color: field.ringed ? Theme.accent : !field.enabled ? Theme.hairline : field.lit ? Theme.control : Theme.edge
    }

    Icon {
        x: 11
        anchors.verticalCenter: parent.verticalCenter
        name: "search"
        color: field.enabled ? Theme.textSecond : Theme.textSecondOnTint
    }
    Label {
        x: field.leftPadding
        anchors.verticalCenter: parent.verticalCenter
        visible: field.text.length === 0 && field.preeditText.length === 0
        text: field.prompt
        color: field.enabled ? Theme.textSecond : Theme.textSecondOnTint
        Accessible.ignored: true
    }
    IconButton {
        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        visible: field.text.length > 0
        size: 24
        iconName: "clear"
        text: qsTr("Clear the search")
        focusPolicy: Qt.NoFocus
        onClicked: field.empty()
    }
}
