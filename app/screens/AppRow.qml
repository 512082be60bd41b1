import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// One application: its icon, its name, and whether it is allowed.
Item {
    id: root

    required property string name
    required property url icon
    required property bool isOn
    property bool isCurrent: false

    signal turned(bool isOn)

    implicitHeight: 48

    FocusRing {
        visible: root.isCurrent
        anchors.margins: 2
        cornerRadius: 8
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 18
        spacing: 12

        Item {
            implicitWidth: 28
            implicitHeight: 28

            Image {
                id: picture

                anchors.fill: parent
                source: root.icon
                sourceSize.width: 28 * Screen.devicePixelRatio
                sourceSize.height: 28 * Screen.devicePixelRatio
                fillMode: Image.PreserveAspectFit
                asynchronous: true
                cache: false
            }

            Symbol {
                anchors.centerIn: parent
                visible: picture.status === Image.Null || picture.status === Image.Error
                name: "scope"
                size: 22
                color: Theme.muted
            }
        }

        AppToggle {
            Layout.fillWidth: true
            focusPolicy: Qt.NoFocus
            label: root.name
            isOn: root.isOn
            onToggled: on => root.turned(on)
        }
    }
}
