import QtQuick
import Quarvo

// The advertisement that came with a picture.
ControlButton {
    id: root

    property string word

    Accessible.name: QuarvoLook.text("accessibleAdvertisement", QuarvoLook.language) + " " + root.text
    height: label.implicitHeight + 5
    leftPadding: 5
    rightPadding: 5
    text: QuarvoLook.oneLine(root.word)
    visible: root.word !== ""
    width: label.implicitWidth + 10

    background: Rectangle {
        color: QuarvoLook.badge

        Rectangle {
            anchors.fill: parent
            color: root.showsHover ? QuarvoLook.hoverTint : "transparent"
        }
    }
    contentItem: QuarvoText {
        id: label

        pixelSize: 12
        text: root.word
        widest: 115
    }
}
