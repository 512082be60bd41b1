import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// What the main window shows while a session runs.
ScrollArea {
    id: root

    required property SessionModel session

    contentHeight: Math.max(height, column.implicitHeight + 68)

    ColumnLayout {
        id: column

        x: (root.width - width) / 2
        y: Math.max(34, (root.height - implicitHeight) / 2)
        width: Math.min(640, root.width - 48)
        spacing: 22

        RotatingQuote {
            Layout.fillWidth: true
            Layout.margins: 18
            session: root.session
            unit: 1
            // Not before it is known what the session is at.
            shown: root.visible && root.session.segmentAndTotal !== "" && root.Window.visibility !== Window.Hidden && root.Window.visibility !== Window.Minimized
            category: root.session.isWork ? QuoteTask.Urge : QuoteTask.Rest
            alternate: root.session.isWork ? QuoteTask.Returning : QuoteTask.None
            rotateEvery: 60
            size: 30
        }

        CardSurface {
            Layout.fillWidth: true
            cornerRadius: 24

            ColumnLayout {
                anchors.fill: parent
                anchors.margins: 22
                spacing: 10

                FormHeading {
                    title: root.session.isWork ? Texts.thisSessionWork : Texts.restWord
                }

                AppText {
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: root.session.intent
                    weight: Font.Medium
                    size: 20
                    wrapMode: Text.Wrap
                    maximumLineCount: 6
                    elide: Text.ElideRight
                }

                AppText {
                    Layout.fillWidth: true
                    text: root.session.segmentAndTotal
                    size: 16
                    color: Theme.muted
                    wrapMode: Text.Wrap
                }
            }
        }

        AppText {
            Layout.fillWidth: true
            visible: text !== ""
            text: root.session.returnedSoFar
            size: 14
            color: Theme.muted
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }

        QuietLink {
            Layout.alignment: Qt.AlignHCenter
            text: Texts.endSession
            onClicked: root.session.beginEmergencyExit()
        }
    }
}
