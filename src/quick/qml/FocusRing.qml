import QtQuick
import Quarvo

// Shows where the keyboard is, on any ground.
Rectangle {
    id: root

    required property Item control
    property bool isByKeyboard: true

    anchors.fill: parent
    border.color: "white"
    border.width: 4
    color: "transparent"
    visible: root.control.activeFocus && root.isByKeyboard

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        border.color: QuarvoLook.accent
        border.width: 2
        color: "transparent"
    }
}
