import QtQuick
import WendlowControls

// Small words of a row, which the row itself tells a screen reader.
Label {
    role: Label.Role.Small
    color: Theme.textSecond
    elide: Text.ElideRight
    horizontalAlignment: Text.AlignLeft
    Accessible.ignored: true
}
