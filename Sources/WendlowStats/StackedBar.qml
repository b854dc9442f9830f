pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// Shares side by side, told apart by a gap and their order too. It grows once, when its shares come.
Item {
    id: bar

    // As StatsRoot has them: a list of maps with `share`.
    required property var shares
    readonly property var inks: [Theme.accent, Theme.accentMid, Theme.stone]
    readonly property bool any: bar.shares.some(each => each.share > 0)
    property real grown: 1

    readonly property int gap: 2
    readonly property int least: 4
    readonly property int round: 5

    implicitHeight: 10

    // The widths of all shares; one that is there at all can be seen, at the cost of the widest.
    function widths(): var {
        const seen = bar.shares.filter(each => each.share > 0).length;
        const room = bar.width - bar.gap * Math.max(0, seen - 1);
        const all = bar.shares.map(each => each.share > 0 ? Math.max(bar.least, Math.round(each.share * room)) : 0);
        const over = all.reduce((sum, each) => sum + each, 0) - room;
        const widest = all.indexOf(Math.max(...all));
        if (seen > 0)
            all[widest] -= over;
        return all;
    }

    onSharesChanged: {
        growth.stop();
        bar.grown = 1;
        if (bar.any && Theme.counting > 0)
            growth.restart();
    }

    Accessible.ignored: true

    NumberAnimation {
        id: growth
        target: bar
        property: "grown"
        from: 0
        to: 1
        duration: Theme.counting
        easing.type: Easing.OutQuad
    }
    Rectangle {
        visible: !bar.any
        anchors.fill: parent
        radius: bar.round
        color: Theme.track
    }
    Item {
        width: Math.round(bar.width * bar.grown)
        height: bar.height
        clip: true

        Repeater {
            id: parts

            readonly property var lengths: bar.widths()
            readonly property int first: bar.shares.findIndex(each => each.share > 0)
            readonly property int last: bar.shares.reduce((found, each, at) => each.share > 0 ? at : found, -1)

            model: bar.shares

            // Only the ends of the whole bar are round: what is round besides lies outside of its share.
            Item {
                id: part

                required property int index
                required property var modelData

                readonly property int before: part.index === parts.first ? 0 : bar.round
                readonly property int behind: part.index === parts.last ? 0 : bar.round

                x: parts.lengths.slice(0, part.index).reduce((sum, each) => each > 0 ? sum + each + bar.gap : sum, 0)
                width: parts.lengths[part.index] ?? 0
                height: bar.height
                visible: part.modelData.share > 0
                clip: true

                Rectangle {
                    x: -part.before
                    width: part.width + part.before + part.behind
                    height: parent.height
                    radius: bar.round
                    color: bar.inks[part.index % bar.inks.length]
                }
            }
        }
    }
}
