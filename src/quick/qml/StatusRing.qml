import QtQuick
import Quarvo

// The strip at the left of the button: the logo, or a ring that shows how far the verification has come.
Item {
    id: root

    property int status
    property real radius
    readonly property bool isEnd: root.status === VerifyStatus.Passed || root.status === VerifyStatus.Failed

    onStatusChanged: {
        arc.rotation = 0;
        arc.start = root.status === VerifyStatus.Verifying ? Math.floor(Math.random() * 8) / 10 : 0;
        reveal.stop();
        reveal.part = 1;
        // The binding of isEnd may not have followed yet.
        const ends = root.status === VerifyStatus.Passed || root.status === VerifyStatus.Failed;
        if (QuarvoLook.isMotionReduced || !(ends || root.status === VerifyStatus.Drawing))
            return;
        reveal.duration = ends ? QuarvoMeasure.MarkDuration : QuarvoMeasure.RingDuration;
        reveal.start();
    }

    Item {
        anchors.fill: parent
        clip: true

        Rectangle {
            color: "#4d000000"
            height: parent.height
            // The corners on the right lie beyond the edge.
            radius: root.radius
            width: parent.width + root.radius
        }
    }
    QuarvoPicture {
        anchors.centerIn: parent
        height: implicitWidth > 0 ? width * implicitHeight / implicitWidth : 0
        name: "qv_click_btn_logo"
        visible: root.status === VerifyStatus.Normal
        width: 16
    }
    Rectangle {
        id: circle

        anchors.centerIn: parent
        border.color: root.status === VerifyStatus.Touching ? "white" : "#80ffffff"
        border.width: 2
        color: "transparent"
        height: 28
        radius: 14
        visible: root.status !== VerifyStatus.Normal
        width: 28

        SequentialAnimation on scale {
            loops: Animation.Infinite
            running: root.status === VerifyStatus.Touching && root.visible && !QuarvoLook.isMotionReduced

            onStopped: circle.scale = 1

            NumberAnimation {
                duration: 500
                to: 0.8
            }
            NumberAnimation {
                duration: 500
                to: 1
            }
        }
    }
    QuarvoMark {
        id: arc

        property real start

        anchors.centerIn: parent
        height: 30
        objectName: "arc"
        radius: 13
        strokeEnd: root.status === VerifyStatus.Verifying ? start + 0.15 : root.status === VerifyStatus.Drawing ? reveal.part : 1
        strokeStart: start
        visible: circle.visible && root.status !== VerifyStatus.Touching
        width: 30

        RotationAnimation on rotation {
            duration: 1000
            from: 0
            loops: Animation.Infinite
            running: root.status === VerifyStatus.Verifying && root.visible && !QuarvoLook.isMotionReduced
            to: 360
        }
    }
    Rectangle {
        anchors.centerIn: parent
        color: "#80ffffff"
        height: 16
        radius: 8
        visible: root.status === VerifyStatus.Drawing
        width: 16
    }
    QuarvoMark {
        id: mark

        anchors.centerIn: parent
        height: 30
        kind: root.status === VerifyStatus.Passed ? QuarvoMark.Tick : root.status === VerifyStatus.Failed ? QuarvoMark.Cross : QuarvoMark.Ring
        lineWidth: root.status === VerifyStatus.Drawing ? 8 : 2
        radius: 4
        strokeEnd: reveal.part
        visible: root.isEnd || root.status === VerifyStatus.Drawing
        width: 30

        SequentialAnimation on scale {
            loops: Animation.Infinite
            running: root.status === VerifyStatus.Drawing && reveal.part === 1 && root.visible && !QuarvoLook.isMotionReduced

            onStopped: mark.scale = 1

            NumberAnimation {
                duration: 500
                to: 0.8
            }
            NumberAnimation {
                duration: 500
                to: 1
            }
        }
    }
    NumberAnimation {
        id: reveal

        property real part: 1

        from: 0
        property: "part"
        target: reveal
        to: 1
    }
}
