import QtQuick
import WendlowControls

// What a card says in place of what it shows. While the day is being read it is said only once that takes
// longer than a person notices.
EmptyState {
    id: words

    required property bool loading
    property bool late: false

    visible: words.text.length > 0 && (!words.loading || words.late)
    onLoadingChanged: words.late = false

    Timer {
        interval: 250
        running: words.loading
        onTriggered: words.late = true
    }
}
