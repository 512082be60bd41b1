import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// What a session needs to know: its goal, its profile, its lengths; and the button that begins it.
ColumnLayout {
    id: root

    required property StartModel model

    spacing: 8

    AppText {
        Layout.fillWidth: true
        text: Texts.startSubtitle
        weight: Font.DemiBold
        size: 28
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    FormHeading {
        Layout.topMargin: 14
        title: Texts.goalHeading
    }

    AppTextField {
        id: goal

        Layout.fillWidth: true
        text: root.model.intent
        placeholder: Texts.goalPlaceholder
        size: 17
        onEdited: root.model.intent = text
    }

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: goal.activeFocus ? 2 : 1
        color: goal.activeFocus ? Theme.accent : Theme.line
    }

    FormHeading {
        Layout.topMargin: 14
        title: Texts.profileHeading
    }

    ChipRow {
        Layout.fillWidth: true
        Layout.leftMargin: -rim
        Layout.rightMargin: -rim
        names: root.model.profileNames
        selectedIndex: root.model.selectedIndex
        onSelected: index => root.model.select(index)
    }

    FormHeading {
        Layout.topMargin: 6
        title: Texts.allowedInSession
    }

    AppText {
        Layout.fillWidth: true
        Layout.bottomMargin: 12
        text: root.model.allowedSummary
        wrapMode: Text.Wrap
    }

    Repeater {
        model: root.model.timeRows

        TimeSlider {
            required property TimeRow modelData

            Layout.fillWidth: true
            Layout.bottomMargin: 4
            row: modelData
        }
    }

    PrimaryPillButton {
        Layout.fillWidth: true
        Layout.topMargin: 10
        text: Texts.startSession
        onClicked: root.model.startSession()
    }

    QuietLink {
        id: reset

        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 10
        Layout.bottomMargin: 6
        text: Texts.resetTimings
        Accessible.description: Texts.resetTimingsHelp
        onClicked: root.model.resetTimings()

        HelpTip {
            text: Texts.resetTimingsHelp
            visible: reset.hovered || reset.visualFocus
        }
    }

    AppText {
        Layout.fillWidth: true
        text: Texts.appsStayOpen
        size: 13
        color: Theme.muted
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
}
