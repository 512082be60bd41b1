import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// The content of the main window: the rail of tabs, and the page of the chosen one.
Item {
    id: root

    required property SessionModel session
    required property MainModel model
    /// No smaller, or the pages would not fit.
    readonly property size minimumSize: Qt.size(900, 680)

    implicitWidth: minimumSize.width
    implicitHeight: minimumSize.height
    LayoutMirroring.enabled: Texts.isRightToLeft
    LayoutMirroring.childrenInherit: true

    ThemeBackground {
        anchors.fill: parent
    }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        Rail {
            Layout.fillHeight: true
            session: root.session
            model: root.model
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            Loader {
                anchors.fill: parent
                active: root.model.tab === MainModel.Start && !root.session.isActive
                sourceComponent: StartView {
                    model: root.model.start
                }
            }

            Loader {
                anchors.fill: parent
                active: root.model.tab === MainModel.Start && root.session.isActive
                sourceComponent: ActiveSessionView {
                    session: root.session
                }
            }

            Loader {
                anchors.fill: parent
                active: root.model.tab === MainModel.Profiles
                sourceComponent: ProfilesView {
                    model: root.model.profiles
                }
            }
        }
    }

    Loader {
        active: root.model.profiles.editor.picker !== null
        sourceComponent: AppPickerSheet {
            parent: root
            editor: root.model.profiles.editor
        }
    }
}
