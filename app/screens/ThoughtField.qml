import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// Where a thought can be left that would not let go.
Column {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown

    function save() {
        if (thought.save(field.text))
            field.text = "";
    }

    spacing: 10 * unit

    ThoughtModel {
        id: thought

        session: root.session
        isShown: root.shown
    }

    AppText {
        width: parent.width
        text: Texts.thoughtFieldPrompt
        size: 16 * root.unit
        wrapMode: Text.Wrap
    }

    FieldBox {
        width: parent.width
        minHeight: 60 * root.unit
        unit: root.unit

        AppTextField {
            id: field

            objectName: "thought"
            Layout.fillWidth: true
            placeholder: Texts.thoughtFieldExample
            size: 16 * root.unit
            focus: true
            focusOnAppear: true
            handlesSubmit: true
            onSubmitted: root.save()
        }

        ClearTextButton {
            Layout.preferredHeight: 44 * root.unit
            text: thought.justSaved ? Texts.saved : Texts.save
            size: 16 * root.unit
            weight: Font.Medium
            color: Theme.accent
            onClicked: root.save()
        }
    }
}
