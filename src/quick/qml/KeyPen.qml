import QtQuick
import Quarvo

// Where the keyboard's pen is, and which keys there are until one is used.
Item {
    id: root

    required property QuarvoSurface surface
    required property Item picture
    required property rect pictureArea

    readonly property bool isSteered: root.surface.isDrawingEnabled && root.picture.activeFocus

    function say() {
        if (root.isSteered)
            QuarvoLook.announce(mark, mark.Accessible.name);
    }

    Rectangle {
        id: mark

        Accessible.ignored: !root.isSteered
        Accessible.name: QuarvoLook.text(root.surface.isPenDown ? "accessiblePenDown" : "accessiblePenUp", QuarvoLook.language)
        Accessible.role: Accessible.AlertMessage
        // Light within dark is seen on any picture.
        border.color: "black"
        border.width: 5
        color: root.surface.isPenDown ? QuarvoLook.accent : "transparent"
        height: 18
        objectName: "keyPen"
        radius: 9
        visible: root.isSteered
        width: 18
        x: Math.round(root.surface.pen.x) - 9
        y: Math.round(root.surface.pen.y) - 9

        Rectangle {
            anchors.fill: parent
            anchors.margins: 1.5
            border.color: "white"
            border.width: 2
            color: "transparent"
            radius: width / 2
        }
    }
    Rectangle {
        color: QuarvoLook.badge
        height: hint.height + 12
        objectName: "penHint"
        visible: root.isSteered && !root.surface.isPenUsed
        width: hint.width + 20
        x: root.pictureArea.x + (root.pictureArea.width - width) / 2
        // Below the pen, and above a bar.
        y: root.pictureArea.y + 0.7 * root.pictureArea.height - height / 2

        Line {
            id: hint

            anchors.centerIn: parent
            color: "white"
            mostLines: 4
            pixelSize: 13
            text: QuarvoLook.text("accessiblePen", QuarvoLook.language)
            width: Math.min(implicitWidth, root.pictureArea.width - 60)
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
