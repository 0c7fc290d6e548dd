import QtQuick
import QtQuick.Templates as T
import Quarvo

// A picture to be clicked.
T.AbstractButton {
    id: root

    property string picture
    property string textKey
    property real inset: 5

    Accessible.name: QuarvoLook.text(root.textKey, QuarvoLook.language)
    Accessible.role: Accessible.Button
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: root.down ? 0.8 : 1
    padding: root.inset

    contentItem: QuarvoPicture {
        name: root.picture
    }

    Keys.onEnterPressed: root.clicked()
    Keys.onReturnPressed: root.clicked()

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: root.inset
        color: QuarvoLook.discHoverTint
        radius: width / 2
        visible: root.hovered && !root.background
        // Over the picture.
        z: 1
    }
    FocusRing {
        control: root
        isByKeyboard: root.visualFocus && !root.background
    }
}
