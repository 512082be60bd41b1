import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// The page of profiles: all of them by name, and the chosen one to edit.
Page {
    id: root

    required property ProfilesModel model

    title: Texts.tabProfiles
    subtitle: Texts.profilesSubtitle

    RowLayout {
        Layout.fillWidth: true
        spacing: 14

        ChipRow {
            Layout.fillWidth: true
            Layout.maximumWidth: implicitWidth
            Layout.leftMargin: -rim
            names: root.model.names
            selectedIndex: root.model.selectedIndex
            onSelected: index => root.model.select(index)
        }

        QuietLink {
            text: Texts.newProfile
            icon.name: "plus"
            onClicked: root.model.newProfile()
        }
    }

    ProfileEditor {
        Layout.fillWidth: true
        visible: root.model.selectedIndex >= 0
        model: root.model.editor
    }

    QuietLink {
        Layout.alignment: Qt.AlignHCenter
        text: Texts.deleteProfile
        enabled: root.model.canDelete
        opacity: enabled ? 1 : 0.9 // with the half of it that a disabled link has by itself
        onClicked: {
            root.model.deleteProfile();
            // The last one cannot be deleted: the keyboard goes on from the field before.
            if (!enabled)
                nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
        }
    }
}
