pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// One of a few words, the picked one underlined. The arrows go from word to word.
Row {
    id: words

    // Maps with `word` and `picked`, as their owner says, and with `key` where a word is not what it is known by.
    required property var choices

    // By its key, or else by its word.
    signal chosen(string key)

    spacing: Theme.space16

    Repeater {
        model: words.choices

        T.RadioButton {
            id: word

            required property var modelData
            required property int index

            property bool ringed: word.visualFocus
            readonly property bool picked: word.modelData.picked
            readonly property string key: word.modelData.key ?? word.text

            text: word.modelData.word
            implicitWidth: label.implicitWidth
            implicitHeight: Theme.scaled(24)
            hoverEnabled: true
            checkable: false
            checked: word.picked
            autoExclusive: false
            focusPolicy: Qt.StrongFocus

            Accessible.name: word.text
            Accessible.checkable: true
            Accessible.checked: word.picked
            Accessible.onPressAction: words.chosen(word.key)
            Accessible.onToggleAction: words.chosen(word.key)
            Keys.onReturnPressed: words.chosen(word.key)
            Keys.onEnterPressed: words.chosen(word.key)
            Keys.onLeftPressed: word.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            Keys.onRightPressed: word.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            onClicked: words.chosen(word.key)

            indicator: null
            Label {
                id: label
                anchors.fill: parent
                role: word.picked ? Label.Role.SmallStrong : Label.Role.Small
                text: word.text
                color: word.picked || word.hovered ? Theme.text : Theme.textSecond
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
            background: Item {
                Rectangle {
                    visible: word.picked
                    y: parent.height - 2
                    width: parent.width
                    height: 2
                    radius: 1
                    color: Theme.accent
                }
                FocusRing {
                    anchors.leftMargin: -6
                    anchors.rightMargin: -6
                    shown: word.ringed
                    around: Theme.radiusTag
                }
            }
        }
    }
}
