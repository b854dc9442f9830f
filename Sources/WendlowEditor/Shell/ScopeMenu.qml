pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// The scopes to choose from, one line each, indented by depth; there may be thousands.
Item {
    id: anchor

    required property EditorFaceBarModel model

    // The menu closes, and what it belongs to is to have the focus.
    signal exited

    anchors.top: parent?.bottom
    anchors.topMargin: 6

    T.Popup {
        id: popup

        width: Math.min(420, Math.max(260, lines.widest + 10))
        height: Math.min(lines.contentHeight + manage.height + 9 + 10, anchor.Window.height - 120)
        padding: 5
        modal: false
        focus: true
        visible: anchor.model.pickerOpen
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
        onClosed: {
            anchor.model.pickerOpen = false;
            anchor.exited();
        }

        background: Rectangle {
            color: Theme.surface
            radius: Theme.radiusCard
            border.width: Theme.strokeHairline
            border.color: Theme.edge
        }

        contentItem: FocusScope {
            focus: true

            ListView {
                id: lines

                property real widest: 0

                width: parent.width
                height: parent.height - manage.height - 9
                clip: true
                focus: true
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                model: anchor.model
                currentIndex: 0
                Component.onCompleted: {
                    lines.currentIndex = anchor.model.pickedIndex();
                    lines.positionViewAtIndex(lines.currentIndex, ListView.Center);
                }

                T.ScrollBar.vertical: ScrollBar {}

                Accessible.role: Accessible.PopupMenu
                Accessible.name: qsTr("Scopes")

                Keys.onReturnPressed: anchor.model.choose(lines.currentIndex)
                Keys.onEnterPressed: anchor.model.choose(lines.currentIndex)
                Keys.onSpacePressed: anchor.model.choose(lines.currentIndex)
                Keys.onPressed: event => {
                    const last = lines.count - 1;
                    const steps = {
                        [Qt.Key_Home]: 0,
                        [Qt.Key_End]: last,
                        [Qt.Key_PageUp]: Math.max(0, lines.currentIndex - 10),
                        [Qt.Key_PageDown]: Math.min(last, lines.currentIndex + 10)
                    };
                    event.accepted = event.key in steps;
                    if (event.accepted)
                        lines.currentIndex = steps[event.key];
                }

                delegate: T.MenuItem {
                    id: line

                    required property int index
                    required property string title
                    required property int depth
                    required property bool picked

                    readonly property bool lit: line.hovered || (line.ListView.isCurrentItem && lines.activeFocus)

                    width: lines.width
                    implicitHeight: 28
                    hoverEnabled: true
                    text: line.title
                    Accessible.name: line.title
                    Accessible.checkable: true
                    Accessible.checked: line.picked
                    Accessible.onPressAction: anchor.model.choose(line.index)
                    onClicked: anchor.model.choose(line.index)
                    Component.onCompleted: lines.widest = Math.max(lines.widest, words.x + words.implicitWidth + 24)

                    contentItem: Item {
                        Icon {
                            x: 7
                            anchors.verticalCenter: parent.verticalCenter
                            visible: line.picked
                            name: "check"
                            color: Theme.textSecondOnTint
                        }
                        Label {
                            id: words
                            x: 28 + 12 * Math.max(0, line.depth - 1)
                            width: Math.min(implicitWidth, parent.width - x - 8)
                            anchors.verticalCenter: parent.verticalCenter
                            text: line.title
                            elide: Text.ElideMiddle
                            Accessible.ignored: true
                        }
                    }
                    background: Rectangle {
                        radius: Theme.radiusTile
                        color: line.lit ? Theme.accentSoft : "transparent"
                    }
                    Hint {
                        text: line.title
                        wanted: line.hovered && words.truncated
                    }
                }
            }
            Hairline {
                x: 8
                y: manage.y - 5
                width: parent.width - 16
            }
            MenuItem {
                id: manage
                y: parent.height - height
                width: parent.width
                text: qsTr("Manage Scopes…")
                lit: manage.hovered || manage.activeFocus
                onClicked: anchor.model.manageScopes()
                Keys.onReturnPressed: anchor.model.manageScopes()
                Keys.onEnterPressed: anchor.model.manageScopes()
            }
        }
    }
}
