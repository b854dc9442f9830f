pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// The content of the journey's window: the steps at the left, beside them the screen that is shown, and the
// sheets over both.
FocusScope {
    id: face

    required property JourneyRoot root
    // A picture is taken, and the focus may be nowhere.
    property bool posing: false

    readonly property bool narrow: face.width < Theme.scaled(680)
    // There is one at a time, and it says so itself.
    property JourneyPage page: null
    readonly property string screen: face.root.started ? face.root.screen : ""

    onRootChanged: face.root.appear()
    Component.onCompleted: face.root.appear()

    // What is being taken back is taken back whole: the window stays until the application ends.
    Connections {
        target: face.Window.window
        function onClosing(close: CloseEvent): void {
            close.accepted = !face.root.cancelling;
        }
    }

    // What is pressed goes with its screen, and a permission that is there takes its button away.
    FocusKeeper {
        content: face
        onLost: if (!face.posing && face.page !== null)
            face.page.take()
    }
    Connections {
        target: face.root
        function onSaid(words: string): void {
            Speech.say(words);
        }
    }

    JourneyRail {
        id: rail
        height: parent.height
        width: implicitWidth
        narrow: face.narrow
        steps: face.root.started ? face.root.rail : []
        spoken: face.root.started ? face.root.railSpoken : ""
    }
    FocusScope {
        id: stage
        anchors.left: rail.right
        anchors.right: parent.right
        height: parent.height
        focus: true

        Only {
            wanted: face.screen === ""
            WaitingScreen {
                id: looking
                anchors.fill: parent
                root: face.root
                text: qsTr("Looking where you stand…")
                Component.onCompleted: face.page = looking
            }
        }
        Only {
            wanted: face.screen === "welcome"
            WelcomeScreen {
                id: welcome
                anchors.fill: parent
                root: face.root
                Component.onCompleted: face.page = welcome
            }
        }
        Only {
            wanted: face.screen === "screenrec" || face.screen === "accessibility" || face.screen === "mic"
            PermissionScreen {
                id: permission
                anchors.fill: parent
                root: face.root
                Component.onCompleted: face.page = permission
            }
        }
        Only {
            wanted: face.screen === "recovery"
            RecoveryScreen {
                id: recovery
                anchors.fill: parent
                root: face.root
                Component.onCompleted: face.page = recovery
            }
        }
        Only {
            wanted: face.screen === "ais"
            PlugInScreen {
                id: plugIn
                anchors.fill: parent
                root: face.root
                Component.onCompleted: face.page = plugIn
            }
        }
        Only {
            wanted: face.screen === "models"
            LocalModelsScreen {
                id: models
                anchors.fill: parent
                root: face.root
                Component.onCompleted: face.page = models
            }
        }
        Only {
            wanted: face.screen === "hello"
            SayHelloScreen {
                id: hello
                anchors.fill: parent
                root: face.root
                Component.onCompleted: face.page = hello
            }
        }
        Only {
            wanted: face.screen === "warming"
            WaitingScreen {
                id: warming
                anchors.fill: parent
                root: face.root
                text: face.root.paragraphs[0] ?? ""
                Component.onCompleted: face.page = warming
            }
        }
        Only {
            wanted: face.screen === "done"
            DoneScreen {
                id: done
                anchors.fill: parent
                root: face.root
                Component.onCompleted: face.page = done
            }
        }
    }
    Once {
        wanted: face.root.confirming

        CancelSheet { root: face.root }
    }
    Once {
        wanted: face.root.cancelFailed

        CancelFailedSheet { root: face.root }
    }
}
