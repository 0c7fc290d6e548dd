import QtQuick
import Quarvo

// A text to be clicked, on the strip below the picture.
ControlButton {
    id: root

    property string textKey
    property int pixelSize: 15
    property bool isBusy

    Accessible.name: root.text
    cursorShape: root.isBusy ? Qt.ArrowCursor : Qt.PointingHandCursor
    text: QuarvoLook.text(root.textKey, QuarvoLook.language)

    background: Rectangle {
        color: root.showsHover && !root.isBusy ? QuarvoLook.stripHover : "transparent"
    }
    contentItem: QuarvoText {
        color: QuarvoLook.doneTitle
        opacity: root.isBusy ? 0 : root.enabled ? (root.down ? 0.8 : 1) : 0.4
        pixelSize: root.pixelSize
        text: root.text
    }

    QuarvoMark {
        anchors.centerIn: parent
        color: "#969696"
        height: 20
        lineWidth: 2
        radius: 8
        strokeEnd: 0.75
        visible: root.isBusy
        width: 20

        RotationAnimation on rotation {
            duration: 1000
            from: 0
            loops: Animation.Infinite
            running: root.isBusy && root.visible && !QuarvoLook.isMotionReduced
            to: 360
        }
    }
}
