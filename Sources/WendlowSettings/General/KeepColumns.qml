import QtQuick
import WendlowControls

// Where the columns of the table of disk use stand in rows of this width, from the right.
QtObject {
    id: columns

    required property real of

    // Too narrow for all columns, what a row costs stands below its name.
    readonly property bool stacked: columns.of < Theme.scaled(500)
    readonly property int width: Theme.scaled(columns.stacked ? 72 : 88)
    readonly property int rateWidth: Theme.scaled(104)
    readonly property int keepWidth: Theme.scaled(columns.stacked ? 56 : 72)
    readonly property real keep: columns.of - Theme.cardPadding - columns.keepWidth
    readonly property real used: columns.keep - columns.width
    readonly property real month: columns.used - columns.width
    readonly property real rate: columns.month - columns.rateWidth
    readonly property real nameWidth: (columns.stacked ? columns.used : columns.rate) - Theme.cardPadding
}
