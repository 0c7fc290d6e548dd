import QtQuick
import Quarvo

// A bar that slides up over the picture's lower edge. One that accepts touches is a button.
ControlButton {
    id: root

    required property QuarvoBar bar
    property string picture
    property color ground
    property color textColor: "white"
    // What the strip for characters covers of the picture.
    property real covered
    readonly property int usualHeight: Math.round(QuarvoMeasure.BarHeight * QuarvoLook.textScale)
    readonly property bool takesInput: root.bar.isShown && root.bar.acceptsTouches
    // How much of it has slid in.
    property real part: root.bar.isShown ? 1 : 0

    Accessible.ignored: !root.takesInput
    Accessible.name: root.text
    cursorShape: root.takesInput ? Qt.PointingHandCursor : Qt.ArrowCursor
    enabled: root.takesInput
    focusPolicy: root.takesInput ? Qt.TabFocus : Qt.NoFocus
    // One line of text is seen above the strip.
    height: Math.max(root.usualHeight + label.extraHeight, root.covered + Math.floor(root.usualHeight * 2 / 3))
    text: QuarvoLook.oneLine(root.bar.text)
    visible: root.bar.isShown || root.part > 0
    width: parent.width
    y: parent.height - Math.round(root.part * root.height)
    z: root.bar.order

    Behavior on part {
        enabled: !QuarvoLook.isMotionReduced

        NumberAnimation {
            duration: QuarvoMeasure.SlideDuration
            easing: QuarvoLook.easeInEaseOut
        }
    }

    background: Rectangle {
        color: root.ground
        opacity: root.down ? 0.8 : 1

        Rectangle {
            anchors.fill: parent
            color: root.showsHover && root.takesInput ? QuarvoLook.hoverTint : "transparent"
        }
    }
    contentItem: Item {
        QuarvoText {
            id: label

            Accessible.ignored: !root.bar.isShown
            Accessible.name: root.text
            Accessible.role: QuarvoLook.messageRole
            color: root.textColor
            hasShadow: root.textColor === Qt.color("white")
            height: parent.height - root.covered
            mostLines: 2
            objectName: "message"
            picture: root.picture
            pixelSize: 14
            text: root.bar.text
            widest: width
            width: (retry.visible ? retry.x : root.width) - 2 * QuarvoMeasure.BarInset
            x: QuarvoMeasure.BarInset
        }
        QuarvoPicture {
            id: retry

            height: QuarvoMeasure.RetrySide
            name: "qv_draw_retry"
            opacity: root.background.opacity
            visible: root.bar.acceptsTouches
            width: QuarvoMeasure.RetrySide
            x: root.width - width - QuarvoMeasure.BarInset
            y: Math.floor((label.height - height) / 2)
        }
    }

    Connections {
        target: root.bar

        function onSlidIn() {
            QuarvoLook.announce(label);
        }
    }
}
