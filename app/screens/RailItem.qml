import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// One tab of the rail.
PlainButton {
    id: root

    required property string symbol
    required property bool isSelected

    /// Another tab is wanted, so many places further down.
    signal moved(int places)

    implicitHeight: 66
    padding: 6
    pressedOpacity: 0.75
    Accessible.role: Accessible.PageTab
    Accessible.selected: isSelected

    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)

    background: Rectangle {
        radius: 18
        color: root.isSelected ? Theme.accentSoft : "transparent"

        FocusRing {
            visible: root.visualFocus
            cornerRadius: 18
            distance: 1
        }
    }

    contentItem: ColumnLayout {
        spacing: 3
        opacity: root.shownOpacity

        Item {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 5
            implicitWidth: 24
            implicitHeight: 22

            Symbol {
                anchors.centerIn: parent
                name: root.symbol
                size: 19
                color: root.isSelected ? Theme.accent : Theme.muted
            }
        }

        AppText {
            isSaid: true
            Layout.fillWidth: true
            text: root.text
            size: 13
            weight: root.isSelected ? Font.DemiBold : Font.Normal
            color: root.isSelected ? Theme.ink : Theme.muted
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
