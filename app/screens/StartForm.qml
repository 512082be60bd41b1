pragma ComponentBehavior: Bound

import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// What a session needs to know: its goal, its profile, its lengths; and the button that begins it. No layout but a plain
/// column, which follows at once where a text or the goal takes another line.
Column {
    id: root

    required property StartModel model

    spacing: 22

    AppText {
        width: root.width
        text: Texts.startSubtitle
        weight: Font.DemiBold
        size: 28
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Column {
        width: root.width
        spacing: 8

        FormHeading {
            width: root.width
            title: Texts.goalHeading
        }

        AppTextField {
            id: goal

            width: root.width
            text: root.model.intent
            placeholder: Texts.goalPlaceholder
            size: 17
            onEdited: root.model.intent = text
        }

        Rectangle {
            width: root.width
            height: goal.activeFocus ? 2 : 1
            color: goal.activeFocus ? Theme.accent : Theme.line
        }
    }

    Column {
        width: root.width
        spacing: 4

        FormHeading {
            width: root.width
            title: Texts.profileHeading
        }

        ChipRow {
            x: -rim
            width: root.width + 2 * rim
            names: root.model.profileNames
            selectedIndex: root.model.selectedIndex
            onSelected: index => root.model.select(index)
        }

        FormHeading {
            width: root.width
            topPadding: 4
            title: Texts.allowedInSession
        }

        AppText {
            width: root.width
            topPadding: 4
            text: root.model.allowedSummary
            wrapMode: Text.Wrap
        }
    }

    Column {
        width: root.width
        spacing: 8

        Repeater {
            model: root.model.timeRows

            TimeSlider {
                required property TimeRow modelData

                width: root.width
                row: modelData
            }
        }
    }

    PrimaryPillButton {
        width: root.width
        text: Texts.startSession
        onClicked: root.model.startSession()
    }

    QuietLink {
        id: reset

        anchors.horizontalCenter: parent.horizontalCenter
        text: Texts.resetTimings
        Accessible.description: Texts.resetTimingsHelp
        onClicked: root.model.resetTimings()

        HelpTip {
            text: Texts.resetTimingsHelp
            visible: reset.hovered || reset.visualFocus
        }
    }

    AppText {
        width: root.width
        text: Texts.appsStayOpen
        size: 13
        color: Theme.muted
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
}
