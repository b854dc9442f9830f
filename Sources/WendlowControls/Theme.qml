pragma Singleton

import QtQuick
import WendlowControls

// Every colour, size, radius and duration of the windows. A control asks for a token by its meaning and
// never writes a figure of its own that stands here.
QtObject {
    readonly property bool dark: ThemeSource.dark
    readonly property bool reduceMotion: ThemeSource.reduceMotion
    readonly property real textScale: ThemeSource.textScale

    // Grounds
    readonly property color ground: dark ? "#1A2027" : "#F6F5F2"
    readonly property color surface: dark ? "#222A33" : "#FFFFFF"
    readonly property color sidebar: dark ? "#161B21" : "#ECEAE4"
    readonly property color well: dark ? "#1D242C" : "#F1EFEA"

    // Words. The second colour has the contrast for ground and surface at rest only; on anything tinted,
    // disabled things included, the other one stands in.
    readonly property color text: dark ? "#E8EAED" : "#1F2328"
    readonly property color textSecond: dark ? "#9AA3AD" : "#6B6F76"
    readonly property color textSecondOnTint: dark ? "#B3BAC3" : "#565A61"

    // Lines
    readonly property color hairline: dark ? "#2F3943" : "#E1DFD8"
    readonly property color edge: dark ? "#414C58" : "#CBC8BF"
    readonly property color control: dark ? "#7A858F" : "#7F8388"

    readonly property color accent: dark ? "#6FBF9F" : "#2F6F5E"
    readonly property color accentHover: dark ? "#82CBAE" : "#28614F"
    readonly property color accentPressed: dark ? "#5FAE8F" : "#215344"
    readonly property color inkOnAccent: dark ? "#0F1F19" : "#FFFFFF"
    readonly property color accentSoft: dark ? "#263C3B" : "#E1ECE7"
    readonly property color accentMid: dark ? "#3F7867" : "#8DB8A9"
    readonly property color stone: dark ? "#55606B" : "#CFC9BA"
    readonly property color track: dark ? "#323C47" : "#E7E4DC"
    readonly property color spinnerRing: dark ? "#3A4551" : "#DAD7CE"

    // Laid over what is below. "here" marks the open place in a sidebar.
    readonly property color hover: Qt.alpha(text, dark ? 0.06 : 0.05)
    readonly property color pressed: Qt.alpha(text, dark ? 0.12 : 0.09)
    readonly property color here: Qt.alpha(text, dark ? 0.10 : 0.08)

    readonly property color warning: dark ? "#E0B25A" : "#855600"
    readonly property color warningFill: dark ? "#332D20" : "#FBF3E0"
    readonly property color warningLine: dark ? "#544829" : "#EAD9AE"
    readonly property color refusal: dark ? "#F0958A" : "#A63A2E"
    readonly property color refusalFill: dark ? "#3A2729" : "#FBECE9"
    readonly property color refusalLine: dark ? "#5C383A" : "#F0CFC9"
    readonly property color destructive: dark ? "#E07F73" : "#A63A2E"
    readonly property color destructiveHover: dark ? "#E88F84" : "#93332A"
    readonly property color destructivePressed: dark ? "#CF7065" : "#802C24"
    readonly property color inkOnDestructive: dark ? "#230D0A" : "#FFFFFF"
    readonly property color scrim: dark ? Qt.rgba(0.035, 0.047, 0.063, 0.58) : Qt.rgba(0.122, 0.137, 0.157, 0.28)

    // Behind what is shown large, dark by day too
    readonly property color stage: Qt.rgba(0.035, 0.047, 0.063, dark ? 0.88 : 0.78)

    // The icon tiles of a sidebar, top and bottom of their gradient
    readonly property color tileTop: dark ? "#5B6570" : "#8B8D8B"
    readonly property color tileBottom: dark ? "#48525C" : "#717472"
    readonly property color tileGlyph: dark ? "#E8EAED" : "#FFFFFF"
    readonly property color openTileTop: dark ? "#5FAE8F" : "#3F8571"
    readonly property color openTileBottom: dark ? "#3F8A6F" : "#2A6555"
    readonly property color openTileGlyph: dark ? "#0F1F19" : "#FFFFFF"

    // Type, in the order of Label.Role
    readonly property var fonts: [
        face(40, Font.DemiBold, -0.9),
        face(22, Font.DemiBold, -0.35),
        face(15, Font.DemiBold, -0.1),
        face(13, Font.DemiBold, 0),
        face(13, Font.Normal, 0),
        face(13, Font.Medium, 0),
        face(12, Font.Normal, 0),
        face(12, Font.Medium, 0),
        face(12, Font.DemiBold, 0),
        face(11, Font.Normal, 0),
        face(11, Font.Medium, 0),
        face(11, Font.DemiBold, 0),
        face(11, Font.DemiBold, 0.6),
        face(22, Font.Normal, -0.35)
    ]
    readonly property var lines: all([48, 28, 20, 20, 20, 20, 16, 16, 16, 16, 16, 16, 16, 28])
    // Qt puts what a fixed line has over below its words. Pushed down by this, the middle between small
    // letters and capitals stands in the middle of the line.
    readonly property var leads: all([-1, 0, 0, 1, 1, 1, 0, 0, 0, 1, 1, 1, 1, 0])
    // In strips and hints small words stand a little wider apart.
    readonly property int hintLine: scaled(18)

    readonly property int space4: 4
    readonly property int space8: 8
    readonly property int space12: 12
    readonly property int space16: 16
    readonly property int space24: 24
    readonly property int space32: 32
    readonly property int space48: 48
    readonly property int cardPadding: 20
    readonly property int sectionAbove: 28
    readonly property int sectionBelow: 8

    readonly property int radiusTag: 4
    readonly property int radiusTile: 6
    readonly property int radiusButton: 8
    readonly property int radiusCard: 12

    readonly property int strokeHairline: 1
    readonly property real strokeControl: 1.5
    readonly property int strokeFocus: 2

    readonly property int iconSize: scaled(16)
    readonly property int menuBarHeight: scaled(28)
    readonly property int sidebarWidth: scaled(224)
    readonly property int buttonHeight: scaled(32)
    readonly property int smallButtonHeight: scaled(28)

    // Milliseconds. With reduced motion everything is at its end at once.
    readonly property int fadeOut: reduceMotion ? 0 : 120
    readonly property int switchTurn: reduceMotion ? 0 : 140
    readonly property int disclosure: reduceMotion ? 0 : 160
    readonly property int counting: reduceMotion ? 0 : 180
    readonly property int toolTipDelay: 500
    readonly property int spinnerTurn: 1000

    // What holds words grows with them: the height of a row, of a field, a column of figures, the icon
    // beside them. Gaps and strokes stay.
    function scaled(size: real): int {
        return Math.round(size * textScale);
    }

    function all(sizes: var): var {
        return sizes.map(size => scaled(size));
    }

    function face(size: int, weight: int, tracking: real): font {
        return Qt.font({
            family: "Inter",
            pixelSize: scaled(size),
            weight: weight,
            letterSpacing: tracking,
            hintingPreference: Font.PreferNoHinting
        });
    }
}
