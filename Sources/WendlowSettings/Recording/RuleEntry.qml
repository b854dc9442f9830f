import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowSettings

// One rule. Its tag and its cross appear with the pointer or the focus; Delete removes it.
T.ItemDelegate {
    id: entry

    required property int index
    required property string value
    required property string tag
    required property bool off
    required property var picture
    required property string letter
    required property RuleGroup group

    // The one of its list at which Tab stops.
    property bool current: false

    signal removed

    readonly property bool lit: entry.hovered || entry.activeFocus || cross.activeFocus
    readonly property color second: entry.lit ? Theme.textSecondOnTint : Theme.textSecond

    implicitHeight: Theme.scaled(32)
    hoverEnabled: true
    // What has the focus cannot cease to be a stop for Tab, and would be one for good.
    focusPolicy: entry.current || entry.activeFocus ? Qt.StrongFocus : Qt.ClickFocus

    Accessible.role: Accessible.ListItem
    Accessible.name: entry.value
    Accessible.description: entry.tag
    Keys.onPressed: event => {
        event.accepted = Shortcuts.isPressed(Shortcuts.RemoveRule, event.key, event.modifiers);
        if (event.accepted)
            entry.removed();
    }

    contentItem: Item {}

    background: HoverFill {
        radius: Theme.radiusButton
        lit: entry.lit
        shade: Theme.hover

        FocusRing {
            shown: entry.visualFocus
            inside: true
        }
    }

    SiteTile {
        visible: entry.group.symbol.length === 0
        x: Theme.space8
        anchors.verticalCenter: parent.verticalCenter
        letter: entry.letter
        picture: entry.picture
    }
    Icon {
        visible: entry.group.symbol.length > 0
        x: Theme.space8
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.scaled(16)
        name: entry.group.symbol
        color: entry.second
    }
    Label {
        id: name
        x: Theme.space8 + Theme.scaled(16) + 10
        width: (tag.visible ? tag.x : entry.lit ? cross.x : parent.width) - x - Theme.space8
        anchors.verticalCenter: parent.verticalCenter
        text: entry.value
        color: entry.off ? entry.second : Theme.text
        elide: Text.ElideRight
        maximumLineCount: 1
        Accessible.ignored: true
    }
    Label {
        id: tag
        visible: entry.tag.length > 0 && (entry.lit || entry.off)
        x: (entry.lit ? cross.x : parent.width) - width - Theme.space8
        width: Math.min(implicitWidth, parent.width * 0.4)
        anchors.verticalCenter: parent.verticalCenter
        role: Label.Role.Fine
        text: entry.tag
        color: entry.second
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    IconButton {
        id: cross
        opacity: entry.lit ? 1 : 0
        anchors.right: parent.right
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.scaled(24)
        iconName: "x"
        text: qsTr("Remove %1").arg(entry.value)
        focusPolicy: Qt.NoFocus
        onClicked: entry.removed()
    }
    Hint {
        text: entry.value
        wanted: entry.lit && name.truncated
    }
}
