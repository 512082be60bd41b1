import QtQuick
import Velmorin.Controls

/// One of the program's line icons. It says nothing to a screen reader: what bears it does.
SymbolDrawing {
    property real size: 20

    implicitWidth: size
    implicitHeight: size
    color: Theme.ink
    Accessible.ignored: true
}
