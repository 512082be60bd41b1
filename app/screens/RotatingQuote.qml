import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// A sentence for the moment, which gives way to others of its kind while it is on display.
Item {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown
    required property int category
    property int alternate: QuoteTask.None
    /// Seconds for each sentence; 0 where the first one stays.
    property real rotateEvery: 0
    property real size: 38
    /// As many lines always have room, so that what is below stays where it is. A sentence that needs more is set in
    /// somewhat smaller type.
    property int lines: 2
    property string former
    property string present
    /// How far the present sentence has come in the place of the former one, from 0 to 1.
    property real arrival: 1

    implicitHeight: Math.ceil(lines * oneLine.implicitHeight)

    QuoteTask {
        session: root.session
        isShown: root.shown
        category: root.category
        alternate: root.alternate
        rotateEvery: root.rotateEvery
        onTextChanged: {
            root.former = root.present;
            root.present = text;
            if (hasRotated && !Theme.reducesMotion)
                arriving.restart();
            else
                arriving.complete();
        }
    }

    NumberAnimation {
        id: arriving

        target: root
        property: "arrival"
        from: 0
        to: 1
        duration: 1400
        easing.type: Easing.InOutQuad
    }

    QuoteText {
        id: oneLine

        visible: false
        isSaid: true
        text: " "
        size: root.size * root.unit
        Accessible.ignored: true
    }

    QuoteText {
        id: before

        anchors.fill: parent
        visible: root.arrival < 1
        opacity: 1 - root.arrival
        text: root.former
        size: root.size * root.unit
        isSaid: true
    }

    QuoteText {
        id: now

        objectName: "quote"
        anchors.fill: parent
        opacity: root.arrival
        text: root.present
        size: root.size * root.unit
    }
}
