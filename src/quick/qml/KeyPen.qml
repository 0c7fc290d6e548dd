import QtQuick
import Quarvo

// Where the keyboard's pen is, and which keys there are until one is used.
Item {
    id: root

    required property int barHeight
    required property QuarvoSurface surface
    required property Item picture
    required property rect pictureArea

    readonly property bool isSteered: root.surface.isDrawingEnabled && root.picture.activeFocus

    function say() {
        if (root.isSteered)
            QuarvoLook.announce(mark);
    }

    Rectangle {
        color: QuarvoLook.badge
        // A text that is too high for the picture becomes smaller.
        height: Math.min(hint.implicitHeight + 12, root.pictureArea.height - root.barHeight - QuarvoMeasure.PenHintMargin)
        objectName: "penHint"
        visible: root.isSteered && !root.surface.isPenUsed
        width: hint.width + 20
        x: root.pictureArea.x + Math.floor((root.pictureArea.width - width) / 2)
        y: root.pictureArea.y + root.pictureArea.height - root.barHeight - QuarvoMeasure.PenHintMargin - height

        QuarvoText {
            id: hint

            anchors.centerIn: parent
            height: parent.height - 12
            mostLines: 4
            pixelSize: 13
            text: QuarvoLook.text("accessiblePen", QuarvoLook.language)
            widest: root.pictureArea.width - 2 * QuarvoMeasure.PenHintMargin - 20
        }
    }
    Item {
        id: mark

        Accessible.ignored: !root.isSteered
        Accessible.name: QuarvoLook.text(root.surface.isPenDown ? "accessiblePenDown" : "accessiblePenUp", QuarvoLook.language)
        Accessible.role: QuarvoLook.messageRole
        height: 21
        objectName: "keyPen"
        visible: root.isSteered
        width: 21
        x: Math.floor(root.surface.pen.x) - 10
        y: Math.floor(root.surface.pen.y) - 10

        // Light within dark is seen on any picture.
        QuarvoMark {
            anchors.fill: parent
            color: "black"
            lineWidth: 5
            radius: 6.5
        }
        QuarvoMark {
            anchors.fill: parent
            fill: root.surface.isPenDown ? QuarvoLook.accent : "transparent"
            radius: 6.5
        }
    }
    Connections {
        property bool wasDown: false

        target: root.surface

        function onPenChanged() {
            if (wasDown === root.surface.isPenDown)
                return;
            wasDown = root.surface.isPenDown;
            root.say();
        }
    }
}
