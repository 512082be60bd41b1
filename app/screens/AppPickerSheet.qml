import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Velmorin.Shell
import Velmorin.Controls

/// The sheet on which the applications of a profile are chosen.
T.Dialog {
    id: root

    required property ProfileEditorModel editor

    title: Texts.chooseApps
    x: Math.round((parent.width - width) / 2)
    y: Math.round((parent.height - height) / 2)
    width: 500
    height: 620
    padding: 20
    modal: true
    focus: true
    visible: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onClosed: editor.closePicker()

    T.Overlay.modal: Rectangle {
        color: Qt.alpha(Theme.base, 0.62)
    }

    background: Rectangle {
        radius: 24
        color: Theme.base
        border.width: 1
        border.color: Theme.line

        Rectangle {
            anchors.fill: parent
            radius: 24
            color: Theme.raised
        }
    }

    contentItem: FocusScope {
        focus: true
        LayoutMirroring.enabled: Texts.isRightToLeft
        LayoutMirroring.childrenInherit: true

        ColumnLayout {
            anchors.fill: parent
            spacing: 14

            RowLayout {
                Layout.fillWidth: true
                spacing: 12

                FieldBox {
                    Layout.fillWidth: true

                    Symbol {
                        name: "search"
                        size: 18
                        color: Theme.muted
                    }

                    AppTextField {
                        Layout.fillWidth: true
                        focus: true
                        focusOnAppear: true
                        text: root.editor.picker?.query ?? ""
                        placeholder: Texts.searchApps
                        handlesCancel: true
                        onEdited: root.editor.picker.query = text
                        onCancelled: root.close()
                    }
                }

                SoftButton {
                    text: Texts.done
                    onClicked: root.close()
                }
            }

            AppList {
                Layout.fillWidth: true
                Layout.fillHeight: true
                picker: root.editor.picker
            }
        }
    }
}
