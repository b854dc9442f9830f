import QtQuick

// Words in one of the roles of the type scale, on lines of that role's fixed height.
Text {
    id: label

    enum Role { Display, Title, Heading, Section, Body, Strong, Small, SmallStrong, SmallBold, Fine, Caption, GroupTitle, Eyebrow, Figure }

    property int role: Label.Role.Body
    property int line: Theme.lines[label.role]

    readonly property int lead: Theme.leads[label.role] + (label.line - Theme.lines[label.role]) / 2

    color: Theme.text
    font: Theme.fonts[label.role]
    lineHeight: label.line
    lineHeightMode: Text.FixedHeight
    topPadding: label.lead
    bottomPadding: -label.lead
    renderType: Text.NativeRendering
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: label.text
}
