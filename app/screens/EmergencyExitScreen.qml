import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// The way out before the end. To stay is the large button, to go the quiet one.
FocusScope {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown

    ExitModel {
        id: exit

        session: root.session
        isShown: root.shown
        reason: reasonField.text
    }

    ScreenColumn {
        anchors.fill: parent
        unit: root.unit

        AppText {
            width: parent.width
            text: Texts.endQuestion
            weight: Font.DemiBold
            size: 21 * root.unit
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }

        RotatingQuote {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown
            category: QuoteTask.Exit
            rotateEvery: 30
            size: 34
        }

        Column {
            width: parent.width
            spacing: 10 * root.unit

            AppText {
                width: parent.width
                text: Texts.whyEnd
                size: 16 * root.unit
                wrapMode: Text.Wrap
            }

            FieldBox {
                width: parent.width
                minHeight: 60 * root.unit
                unit: root.unit

                AppTextField {
                    id: reasonField

                    objectName: "reason"
                    Layout.fillWidth: true
                    placeholder: Texts.reasonPlaceholder
                    size: 16 * root.unit
                    focus: true
                    focusOnAppear: true
                }
            }
        }

        footer: [
            PrimaryPillButton {
                anchors.horizontalCenter: parent.horizontalCenter
                text: Texts.stayAndContinue
                unit: root.unit
                onClicked: root.session.cancelEmergencyExit()
            },
            HintButton {
                objectName: "confirm"
                anchors.horizontalCenter: parent.horizontalCenter
                unit: root.unit
                text: exit.hint
                enabled: exit.canConfirm
                onClicked: exit.confirm()
            }
        ]
    }
}
