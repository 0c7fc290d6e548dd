import QtQuick
import QtQuick.Templates as T
import Quarvo

// The advertisement that came with a picture.
T.AbstractButton {
    id: root

    property string word

    Accessible.name: QuarvoLook.text("accessibleAdvertisement", QuarvoLook.language) + " " + root.text
    Accessible.role: Accessible.Button
    focusPolicy: Qt.TabFocus
    height: label.implicitHeight + 5
    hoverEnabled: true
    leftPadding: 5
    rightPadding: 5
    text: QuarvoLook.oneLine(root.word)
    visible: root.word !== ""
    width: label.width + 10

    background: Rectangle {
        color: QuarvoLook.badge

        Rectangle {
            anchors.fill: parent
            color: root.hovered ? QuarvoLook.hoverTint : "transparent"
        }
    }
    contentItem: Item {
        Line {
            id: label

            color: "white"
            height: parent.height
            text: root.text
            width: Math.min(implicitWidth, 115)
        }
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
