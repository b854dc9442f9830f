pragma ComponentBehavior: Bound

import QtQuick

// What a sheet holds: fields at rest, focused, refused and disabled, and one choice of several.
Column {
    id: forms

    spacing: 8

    BenchHead {
        width: forms.width
        text: qsTr("Fields and choices")
    }
    Field {
        width: forms.width
        prompt: "one lowercase word"
        Accessible.name: "Empty"
    }
    Field {
        width: forms.width
        value: "Read the tide table first"
        ringed: true
        Accessible.name: "Focused"
    }
    Field {
        width: forms.width
        value: "two words"
        failing: true
        Accessible.name: "Refused"
    }
    Field {
        width: forms.width
        value: "harbours"
        enabled: false
        Accessible.name: "Disabled"
    }
    ChoiceRow {
        width: forms.width
        on: true
        text: "inline (no rules module — rides every prompt)"
    }
    ChoiceRow {
        width: forms.width
        on: false
        ringed: true
        text: "a new rules module:"
    }
    BenchHead {
        width: forms.width
        topPadding: Theme.space16
        text: qsTr("Sheet")
    }
    BenchSheet { width: forms.width }
}
