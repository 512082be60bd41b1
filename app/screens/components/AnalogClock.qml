import QtQuick
import Velmorin.Controls

/// A clock with hands. With a `remainingFraction` of 0 to 1 its rim shows what is left of the session.
ClockDial {
    Accessible.role: Accessible.Graphic
    Accessible.name: timeText
    Accessible.readOnly: true
}
