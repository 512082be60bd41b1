import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// How long the session will be, and which of the two kinds it is.
Column {
    id: root

    required property StartModel model

    spacing: 18
    Accessible.role: Accessible.Grouping
    Accessible.name: Texts.sessionTotal

    PreviewRing {
        anchors.horizontalCenter: parent.horizontalCenter
        fraction: root.model.workFraction
        text: root.model.totalText
        label: Texts.sessionTotal
        Accessible.role: Accessible.StaticText
        Accessible.name: root.model.totalInWords
    }

    SegmentedBar {
        accessibleName: Texts.modeHeading
        width: root.width
        options: root.model.modeNames
        selection: root.model.mode
        onSelected: index => root.model.mode = index
    }

    AppText {
        width: root.width
        text: root.model.modeDetail
        size: 14
        color: Theme.muted
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
}
