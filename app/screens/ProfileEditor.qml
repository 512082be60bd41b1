pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// What one profile is called and what it allows.
ColumnLayout {
    id: root

    required property ProfileEditorModel model

    spacing: 18

    Card {
        title: Texts.nameLabel

        FieldBox {
            Layout.fillWidth: true

            AppTextField {
                Layout.fillWidth: true
                text: root.model.name
                placeholder: Texts.profileNamePlaceholder
                onEdited: root.model.name = text
            }
        }
    }

    Card {
        title: Texts.allowedApps

        AppText {
            Layout.fillWidth: true
            visible: root.model.appNames.length === 0
            text: Texts.noAppsChosen
            color: Theme.muted
            wrapMode: Text.Wrap
        }

        RemovableRows {
            names: root.model.appNames
            removals: root.model.appRemovals
            afterwards: chooseApps
            onRemoved: index => root.model.removeApp(index)
        }

        SoftButton {
            id: chooseApps

            /// How the focus came here, and comes back once the sheet is closed.
            property int reason: Qt.OtherFocusReason

            text: Texts.chooseApps
            onClicked: {
                reason = visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason;
                root.model.openPicker();
            }

            Connections {
                target: root.model

                function onPickerChanged() {
                    if (!root.model.picker)
                        chooseApps.forceActiveFocus(chooseApps.reason);
                }
            }
        }

        Repeater {
            model: root.model.warnings

            Notice {
                required property string modelData

                text: modelData
            }
        }
    }

    Card {
        title: Texts.allowedSites

        RemovableRows {
            names: root.model.sites
            removals: root.model.siteRemovals
            isLeftToRight: true
            afterwards: newDomain
            onRemoved: index => root.model.removeSite(index)
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            FieldBox {
                Layout.fillWidth: true

                AppTextField {
                    id: newDomain

                    Layout.fillWidth: true
                    text: root.model.newDomain
                    accessibleName: Texts.allowedSites
                    isLeftToRight: true
                    handlesSubmit: true
                    onEdited: root.model.newDomain = text
                    onSubmitted: root.model.addDomain()
                }
            }

            SoftButton {
                text: Texts.add
                onClicked: root.model.addDomain()
            }
        }

        AppText {
            Layout.fillWidth: true
            text: Texts.domainsNote
            size: 13
            color: Theme.muted
            wrapMode: Text.Wrap
        }

        Notice {
            visible: root.model.siteProblem !== ""
            text: root.model.siteProblem
        }
    }

    Card {
        visible: root.model.hasBrowser
        title: Texts.browserPermission

        AppText {
            Layout.fillWidth: true
            text: Texts.browserPermissionNote
            size: 13
            color: Theme.muted
            wrapMode: Text.Wrap
        }

        Repeater {
            model: root.model.allowedBrowsers

            BrowserPermission {
                required property BrowserRow modelData

                Layout.fillWidth: true
                row: modelData
            }
        }
    }
}
