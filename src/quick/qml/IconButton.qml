import QtQuick
import Quarvo

// A picture to be clicked.
ControlButton {
    id: root

    property string picture
    property string textKey
    property real inset: 5

    Accessible.name: QuarvoLook.text(root.textKey, QuarvoLook.language)
    hasRing: !root.background
    opacity: root.down ? 0.8 : 1
    padding: root.inset

    contentItem: QuarvoPicture {
        name: root.picture
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: root.inset
        color: QuarvoLook.discHoverTint
        radius: width / 2
        visible: root.showsHover && !root.background
        // Over the picture.
        z: 1
    }
}
