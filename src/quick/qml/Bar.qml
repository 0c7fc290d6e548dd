import QtQuick
import QtQuick.Templates as T
import Quarvo

// A bar that slides up over the picture's lower edge. One that accepts touches is a button.
T.AbstractButton {
    id: root

    required property QuarvoBar bar
    property string picture
    property color ground
    property color textColor: "white"
    // What the strip for characters covers of the picture.
    property real covered
    readonly property real usualHeight: Math.round(30 * QuarvoLook.textScale)
    // Beside the two icons.
    readonly property real labelWidth: root.width - 44 - (root.takesInput ? 26 : 0)
    readonly property bool takesInput: root.bar.isShown && root.bar.acceptsTouches

    Accessible.ignored: !root.bar.isShown
    Accessible.name: root.text
    Accessible.role: root.takesInput ? Accessible.Button : Accessible.AlertMessage
    enabled: root.takesInput
    focusPolicy: root.takesInput ? Qt.TabFocus : Qt.NoFocus
    height: Math.max(root.usualHeight + Math.max(0, measure.lineCount - 1) * measure.font.pixelSize * 1.2, root.covered + root.usualHeight * 2 / 3)
    hoverEnabled: true
    text: QuarvoLook.oneLine(root.bar.text)
    visible: root.bar.isShown || y < parent.height
    width: parent.width
    y: parent.height - (root.bar.isShown ? root.height : 0)
    z: root.bar.order

    Behavior on y {
        enabled: !QuarvoLook.isMotionReduced

        NumberAnimation {
            duration: 200
            easing.type: Easing.InOutQuad
        }
    }

    background: Rectangle {
        color: root.ground
        opacity: root.down ? 0.8 : 1

        Rectangle {
            anchors.fill: parent
            color: root.hovered && root.takesInput ? QuarvoLook.hoverTint : "transparent"
        }
    }
    contentItem: Item {
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            height: parent.height - root.covered
            spacing: 4

            QuarvoPicture {
                anchors.verticalCenter: parent.verticalCenter
                height: 20
                name: root.picture
                width: 20
            }
            Line {
                id: label

                color: root.textColor
                hasShadow: root.textColor === Qt.color("white")
                height: parent.height
                horizontalAlignment: Text.AlignLeft
                mostLines: 2
                text: root.text
                width: Math.min(implicitWidth, root.labelWidth)
            }
        }
        QuarvoPicture {
            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            anchors.verticalCenterOffset: -root.covered / 2
            height: 16
            name: "qv_draw_retry"
            visible: root.bar.acceptsTouches
            width: 16
        }
    }

    Keys.onEnterPressed: root.clicked()
    Keys.onReturnPressed: root.clicked()

    Line {
        id: measure

        // Has no height that the number of lines could follow.
        fontSizeMode: Text.FixedSize
        mostLines: 2
        text: root.text
        visible: false
        width: root.labelWidth
    }
    Connections {
        target: root.bar

        function onSlidIn() {
            QuarvoLook.announce(root, root.text);
        }
    }
    HoverHandler {
        cursorShape: root.takesInput ? Qt.PointingHandCursor : Qt.ArrowCursor
    }
    FocusRing {
        control: root
        isByKeyboard: root.visualFocus
    }
}
