pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// The tabs at the leading edge of the main window. The arrow keys go from one to the next.
FocusScope {
    id: root

    required property SessionModel session
    required property MainModel model
    /// By the cases of MainModel.MainTab.
    readonly property list<string> titles: [Texts.tabStart, Texts.tabProfiles, Texts.tabThoughts, Texts.tabStats, Texts.tabSettings]
    readonly property list<string> symbols: ["play", "profiles", "thoughts", "stats", "settings"]

    implicitWidth: 124

    ColumnLayout {
        anchors.fill: parent
        anchors.topMargin: 26
        anchors.bottomMargin: 22
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        spacing: 6

        AppMark {
            Layout.alignment: Qt.AlignHCenter
            size: 46
        }

        AppText {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: 18
            text: Texts.appName
            weight: Font.DemiBold
            size: 15
        }

        Repeater {
            id: items

            model: root.model.tabs

            RailItem {
                required property int modelData
                required property int index

                Layout.fillWidth: true
                symbol: root.symbols[modelData]
                text: root.titles[modelData]
                isSelected: root.model.tab === modelData
                onClicked: root.model.tab = modelData
                onMoved: places => items.itemAt(index + places)?.forceActiveFocus(Qt.TabFocusReason)
            }
        }

        Item {
            Layout.fillHeight: true
        }

        HelpedItem {
            Layout.alignment: Qt.AlignHCenter
            visible: root.session.phoneStatus !== ""
            help: root.session.phoneStatus

            Symbol {
                name: "phone"
                size: 20
                color: Theme.muted
            }
        }
    }

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }
}
