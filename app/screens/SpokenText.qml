import QtQuick
import Velmorin.Controls

/// Text that a screen reader reads out, too. What stands in a control is told by the control.
AppText {
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
