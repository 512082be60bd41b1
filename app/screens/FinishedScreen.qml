pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// The session is done: what it came to.
FocusScope {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown

    FinishedModel {
        id: finished

        session: root.session
        isShown: root.shown
    }

    KeyTap {
        id: tap
    }

    Keys.onPressed: event => event.accepted = tap.press(event.key, event.isAutoRepeat)
    Keys.onReleased: event => {
        if (tap.release(event.key, event.isAutoRepeat))
            root.session.dismissSummary();
    }

    ScreenColumn {
        anchors.fill: parent
        unit: root.unit

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "leaf"
            size: 52 * root.unit
            color: Theme.accent
        }

        RotatingQuote {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown
            category: QuoteTask.Finish
            size: 38
        }

        RowLayout {
            width: parent.width
            spacing: 12 * root.unit

            Repeater {
                model: finished.values.length

                SummaryTile {
                    required property int index

                    objectName: "tile"
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.preferredWidth: 1
                    unit: root.unit
                    value: finished.values[index]
                    label: finished.labels[index]
                }
            }
        }

        footer: PrimaryPillButton {
            anchors.horizontalCenter: parent.horizontalCenter
            text: Texts.done
            unit: root.unit
            onClicked: root.session.dismissSummary()
        }
    }
}
