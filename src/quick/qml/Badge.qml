import QtQuick
import Quarvo

// The round badge of an invisible verification: a turning ring, and a strip that says PASS in the end.
Item {
    id: root

    property bool passed
    readonly property real openLength: root.width / 2 + label.implicitWidth + 10

    Accessible.name: QuarvoLook.text(root.passed ? "clickPass" : "inVerify", QuarvoLook.language)
    Accessible.role: QuarvoLook.messageRole
    anchors.centerIn: parent
    height: 80
    objectName: "badge"
    width: 80
    // Over whatever the host has, and under its popups.
    z: 1000000

    Accessible.onNameChanged: QuarvoLook.announce(root)
    onPassedChanged: {
        arc.rotation = 90;
        if (!QuarvoLook.isMotionReduced)
            pass.start();
    }

    ParallelAnimation {
        id: pass

        NumberAnimation {
            duration: QuarvoMeasure.OpenDuration
            easing: QuarvoLook.easeOut
            from: 0
            property: "openPart"
            target: strip
            to: 1
        }
        NumberAnimation {
            duration: QuarvoMeasure.OpenDuration
            from: 0
            property: "strokeEnd"
            target: arc
            to: 1
        }
        SequentialAnimation {
            PauseAnimation {
                duration: QuarvoMeasure.HaloDelay
            }
            ParallelAnimation {
                NumberAnimation {
                    duration: QuarvoMeasure.HaloDuration
                    easing: QuarvoLook.easeOut
                    from: 0
                    property: "growth"
                    target: halo
                    to: 10
                }
                NumberAnimation {
                    duration: QuarvoMeasure.HaloDuration
                    easing: QuarvoLook.easeIn
                    from: 0.5
                    property: "opacity"
                    target: halo
                    to: 0
                }
            }
        }
    }
    Rectangle {
        id: strip

        property real openPart: 1

        color: "#28c1f7"
        height: 60
        radius: 30
        visible: root.passed
        width: 60 + (root.openLength - 1) * openPart
        x: root.width / 2 - 30
        y: root.height / 2 - 30

        QuarvoText {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            font.pixelSize: 20
            hasShadow: true
            text: "PASS"
            // From the middle of the ring, which hides it at first.
            x: 30 - implicitWidth / 2 + (root.openLength - implicitWidth / 2 + 5) * strip.openPart
        }
    }
    Rectangle {
        id: halo

        property real growth

        anchors.fill: parent
        anchors.margins: -growth - 1
        border.color: "white"
        border.width: 2
        color: "transparent"
        opacity: 0
        radius: width / 2
    }
    QuarvoMark {
        anchors.fill: parent
        anchors.margins: -3
        color: "#a9e6fa"
        fill: "white"
        // Behind the smooth edge of the filled ring one of the same width would shine through.
        lineWidth: root.passed ? 5 : 6
        radius: 40
    }
    QuarvoMark {
        id: arc

        readonly property real start: Math.floor(Math.random() * 75) / 100

        anchors.fill: parent
        anchors.margins: -3
        color: "#28c1f7"
        lineWidth: 6
        radius: 40
        strokeEnd: root.passed ? 1 : start + 0.25
        strokeStart: root.passed ? 0 : start

        RotationAnimation on rotation {
            duration: 1000
            from: 90
            loops: Animation.Infinite
            running: !root.passed && root.visible && !QuarvoLook.isMotionReduced
            to: 450
        }
    }
    QuarvoPicture {
        anchors.centerIn: parent
        height: 40
        name: "qv_invisible_logo"
        width: 40
    }
}
