import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// The content of the main window.
Item {
    id: root

    required property SessionModel session

    AppText {
        text: Texts.startSession
    }
}
