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

    implicitWidth: Theme.scaled(200)
    implicitHeight: Theme.scaled(32)
    leftPadding: glass.x + glass.size + 8
    rightPadding: field.text.length > 0 ? cross.size + 10 : 10
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

    cursorDelegate: Caret { input: field }

    background: Rectangle {
        radius: Theme.radiusButton
        color: field.enabled ? Theme.surface : Theme.well
        border.width: field.ringed ? Theme.strokeFocus : Theme.strokeHairline
        border.color: field.ringed ? Theme.accent : !field.enabled ? Theme.hairline : field.lit ? Theme.control : Theme.edge
    }

    Icon {
        id: glass
        x: 11
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.iconSize
        name: "search"
        color: field.enabled ? Theme.textSecond : Theme.textSecondOnTint
    }
    Label {
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        anchors.verticalCenter: parent.verticalCenter
        visible: field.text.length === 0 && field.preeditText.length === 0
        text: field.prompt
        color: field.enabled ? Theme.textSecond : Theme.textSecondOnTint
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    IconButton {
        id: cross
        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        visible: field.text.length > 0
        size: Theme.scaled(24)
        iconName: "clear"
        text: qsTr("Clear the search")
        focusPolicy: Qt.NoFocus
        onClicked: field.empty()
    }
}
