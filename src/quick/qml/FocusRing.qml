import QtQuick
import Quarvo

// Shows where the keyboard is, on any ground.
Rectangle {
    id: root

    required property Item control
    property bool isByKeyboard: true
    property color line: QuarvoLook.accent

    anchors.fill: parent
    border.color: "white"
    border.width: 4
    color: "transparent"
    visible: root.control.activeFocus && root.isByKeyboard

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        border.color: root.line
        border.width: 2
        color: "transparent"
        radius: Math.max(0, root.radius - 1)
    }
}
