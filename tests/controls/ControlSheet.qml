import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// Every control once, in each of its looks.
Item {
    id: root

    readonly property string sentence: Texts.modeDeepDetail

    width: 1240
    height: 1180
    LayoutMirroring.enabled: Texts.isRightToLeft
    LayoutMirroring.childrenInherit: true

    ThemeBackground {
        anchors.fill: parent
    }

    RowLayout {
        anchors.fill: parent
        anchors.margins: 30
        spacing: 30

        ColumnLayout {
            Layout.preferredWidth: 580
            Layout.maximumWidth: 580
            Layout.fillHeight: true
            spacing: 16

            RowLayout {
                spacing: 20

                AnalogClock { size: 210; date: 795000000; remainingFraction: 0.4 }
                ColumnLayout {
                    RowLayout {
                        spacing: 16

                        AnalogClock { size: 62; date: 795000000 }
                        AnalogClock { size: 62; date: 795000000; remainingFraction: 0.9 }
                        AnalogClock { size: 120; date: 795020000; remainingFraction: 0 }
                    }
                    RowLayout {
                        spacing: 16

                        AppMark { size: 72 }
                        AppMark { size: 32 }
                        AppMark { size: 16 }
                        AppMark { size: 48; source: "nothing" }
                    }
                }
            }

            Flow {
                Layout.fillWidth: true
                spacing: 14

                Repeater {
                    model: ["pencil", "leaf", "warning", "close", "plus", "play", "profiles", "thoughts", "stats",
                            "settings", "phone", "search", "check", "scope"]

                    Symbol {
                        required property string modelData

                        name: modelData
                        size: 28
                    }
                }
            }

            Flow {
                Layout.fillWidth: true
                spacing: 14

                Repeater {
                    model: ["pencil", "leaf", "warning", "profiles", "thoughts", "stats", "settings", "phone"]

                    IconBadge {
                        required property string modelData

                        icon: modelData
                    }
                }
            }

            FieldBox {
                Layout.fillWidth: true
                minHeight: 54

                AppTextField {
                    Layout.fillWidth: true
                    placeholder: Texts.goalPlaceholder
                }
            }

            FieldBox {
                Layout.fillWidth: true

                AppTextField {
                    Layout.fillWidth: true
                    text: root.sentence + " " + root.sentence
                }
                SoftButton { text: Texts.save }
            }

            FieldBox {
                Layout.fillWidth: true

                AppTextField {
                    Layout.fillWidth: true
                    isLeftToRight: true
                    text: "example.com"
                }
            }

            Card {
                title: Texts.goalHeading

                FormHeading { title: Texts.modeHeading }
                SegmentedBar {
                    Layout.fillWidth: true
                    options: [Texts.periodToday, Texts.periodWeek, Texts.periodMonth, Texts.periodAll]
                    selection: 1
                }
                Flow {
                    Layout.fillWidth: true
                    spacing: 8

                    ChipButton { title: Texts.modePomodoro; isSelected: true }
                    ChipButton { title: Texts.modeDeep }
                    ChipButton { title: Texts.tabStats; enabled: false }
                }
                AppSlider { Layout.fillWidth: true; value: 0.3; accessibleName: Texts.focusLength }
            }

            Item { Layout.fillHeight: true }
        }

        ColumnLayout {
            Layout.preferredWidth: 570
            Layout.maximumWidth: 570
            Layout.fillHeight: true
            spacing: 16

            PrimaryPillButton { text: Texts.startSession }
            PrimaryPillButton { text: Texts.startSession; down: true }
            PrimaryPillButton { text: Texts.startSession; enabled: false }
            PrimaryPillButton { text: Texts.startSession; unit: 0.7 }
            RowLayout {
                spacing: 12

                SoftButton {
                    text: Texts.chooseApps

                    FocusRing { visible: true; cornerRadius: 12 }
                }
                SoftButton { text: Texts.save; down: true }
                SoftButton { text: Texts.cancel; enabled: false }
            }
            RowLayout {
                spacing: 20

                QuietLink { text: Texts.endSession }
                QuietLink { text: Texts.writeThought; icon.name: "pencil"; unit: 1.2 }
                ClearTextButton { text: Texts.done; weight: Font.DemiBold }
                ClearTextButton {
                    text: Texts.done

                    Symbol { name: "check" }
                }
            }

            Card {
                SettingRow {
                    icon: "leaf"
                    title: Texts.showBackdrop

                    AppToggle { label: Texts.showBackdrop; showsLabel: false; isOn: true }
                }
                SettingRow {
                    icon: "phone"
                    title: Texts.phoneHeading
                    detail: Texts.phoneOneWayNote

                    AppToggle { label: Texts.phoneHeading; showsLabel: false }
                }
                AppToggle { Layout.fillWidth: true; label: Texts.phoneLockToo }
                AppToggle { label: Texts.phoneLockToo; isOn: true; enabled: false }
            }

            CardSurface {
                Layout.fillWidth: true

                AppText {
                    anchors.fill: parent
                    anchors.margins: 14
                    text: Texts.thoughtsHint
                    wrapMode: Text.Wrap
                    color: Theme.notice
                }
            }

            RowLayout {
                spacing: 6

                Repeater {
                    model: 6

                    Rectangle {
                        required property int index

                        implicitWidth: 40
                        implicitHeight: 24
                        radius: 6
                        color: Theme.series(index)
                    }
                }
            }

            Rectangle {
                Layout.fillWidth: true
                Layout.fillHeight: true
                color: "transparent"
                border.color: Theme.line

                Page {
                    anchors.fill: parent
                    anchors.margins: 1
                    title: Texts.tabThoughts
                    subtitle: Texts.thoughtsSubtitle
                    footer: QuietLink { text: Texts.clearStats }

                    Card {
                        title: Texts.keptThoughts

                        AppText { Layout.fillWidth: true; text: Texts.thoughtsEmpty; wrapMode: Text.Wrap }
                    }
                    Card {
                        title: Texts.keptThoughts

                        AppText { Layout.fillWidth: true; text: root.sentence; wrapMode: Text.Wrap }
                    }
                }
            }
        }
    }
}
