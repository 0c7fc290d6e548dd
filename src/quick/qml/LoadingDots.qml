import QtQuick
import Quarvo

// Three dots that shrink and grow one after the other.
Row {
    id: root

    spacing: 5

    Repeater {
        model: 3

        Rectangle {
            id: dot

            required property int index

            color: QuarvoLook.accent
            height: 10
            radius: 5
            width: 10

            SequentialAnimation {
                running: dot.visible && !QuarvoLook.isMotionReduced

                PauseAnimation {
                    duration: 120 * (dot.index + 1)
                }
                SequentialAnimation {
                    loops: Animation.Infinite

                    NumberAnimation {
                        duration: 225
                        from: 1
                        property: "scale"
                        target: dot
                        to: 0.3
                    }
                    NumberAnimation {
                        duration: 525
                        property: "scale"
                        target: dot
                        to: 1
                    }
                }
            }
        }
    }
}
