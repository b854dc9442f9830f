pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// One screen of the journey: what it is about, scrolling when the window is short, and its foot with the way out
// at the left and the way on at the right.
FocusScope {
    id: page

    required property JourneyRoot root
    default property alias content: scroll.content
    property alias wayOut: leading.data
    // Stands before the way on.
    property alias aside: trailing.data
    property int above: 40
    // Has the focus when nothing else has it, before the button at the foot and behind it.
    property Item first: null
    property Item last: null

    readonly property alias primary: onward
    readonly property bool narrow: page.width < Theme.scaled(480)
    readonly property int margin: page.narrow ? Theme.space24 : Theme.space48

    function take(): void {
        for (const stop of [page.first, onward, page.last, back]) {
            if (stop !== null && stop.visible && stop.enabled) {
                stop.forceActiveFocus(LastInput.reason);
                return;
            }
        }
    }

    focus: true

    ScrollPage {
        id: scroll
        anchors.top: parent.top
        anchors.bottom: foot.top
        width: parent.width
        columnWidth: page.width - 2 * page.margin
        sideMargin: page.margin
        above: page.narrow ? Math.min(Theme.space24, page.above) : page.above
        below: Theme.space16
    }
    Item {
        id: foot

        // Where a quiet button stands whose words are at the margin
        readonly property int begin: Math.max(page.margin - 8, back.visible ? back.x + back.width : 0)

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.scaled(72)

        Hairline {
            visible: scroll.contentHeight > scroll.height
            width: parent.width
        }
        // Hangs left of the margin, so that what stands at the margin never shifts.
        IconButton {
            id: back
            visible: page.root.started && page.root.canGoBack
            x: Math.max(2, page.margin - 8 - width)
            anchors.verticalCenter: parent.verticalCenter
            iconName: "left"
            text: page.root.backWords
            onClicked: page.root.goBack()
        }
        IconButton {
            id: again
            visible: page.root.started && page.root.canReturn
            x: foot.begin
            anchors.verticalCenter: parent.verticalCenter
            iconName: "right"
            text: page.root.returnWords
            onClicked: page.root.returnForward()
        }
        Row {
            id: leading
            x: foot.begin + (again.visible ? again.width : 0)
            anchors.verticalCenter: parent.verticalCenter
        }
        Row {
            id: trailing
            anchors.right: onward.left
            anchors.rightMargin: Theme.space16
            anchors.verticalCenter: parent.verticalCenter
        }
        Button {
            id: onward
            visible: page.root.started && page.root.primaryWords.length > 0
            anchors.right: parent.right
            anchors.rightMargin: page.margin
            anchors.verticalCenter: parent.verticalCenter
            kind: Button.Kind.Primary
            text: page.root.primaryWords
            // While it works it keeps the keys, which would go nowhere.
            enabled: page.root.primaryEnabled || page.root.primaryBusy
            working: page.root.primaryBusy
            onClicked: if (!page.root.primaryBusy)
                page.root.press()
        }
    }
}
