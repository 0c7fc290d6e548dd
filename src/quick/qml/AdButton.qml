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
    width: label.implicitWidth + 10

    background: Rectangle {
        color: QuarvoLook.badge

        Rectangle {
            anchors.fill: parent
            color: root.hovered ? QuarvoLook.hoverTint : "transparent"
        }
    }
    contentItem: QuarvoText {
        id: label

        pixelSize: 12
        text: root.word
        widest: 115
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
