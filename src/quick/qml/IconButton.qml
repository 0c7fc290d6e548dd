import QtQuick
import QtQuick.Templates as T
import Quarvo

// A picture to be clicked.
T.AbstractButton {
    id: root

    property string picture
    property string textKey
    property color ground: "transparent"
    property real inset: 5

    Accessible.name: QuarvoLook.text(root.textKey, QuarvoLook.language)
    Accessible.role: Accessible.Button
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: root.down ? 0.8 : 1
    padding: root.inset

    background: Rectangle {
        color: root.ground
        radius: width / 2

        Rectangle {
            anchors.fill: parent
            anchors.margins: root.ground.a > 0 ? 0 : root.inset
            color: root.ground.a > 0 ? QuarvoLook.hoverTint : QuarvoLook.discHoverTint
            radius: width / 2
            visible: root.hovered
        }
    }
    contentItem: QuarvoPicture {
        name: root.picture
    }

    Keys.onEnterPressed: root.clicked()
    Keys.onReturnPressed: root.clicked()

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }
    FocusRing {
        control: root
        isByKeyboard: root.visualFocus
    }
}
