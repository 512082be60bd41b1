import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// The heading above a part of a form.
AppText {
    property string title

    Layout.fillWidth: true
    text: title
    weight: Font.DemiBold
    size: 14
    color: Theme.muted
    wrapMode: Text.Wrap
    Accessible.role: Accessible.Heading
    Accessible.name: title
}
