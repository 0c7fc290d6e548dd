import QtQuick
import QtQuick.Templates as T
import Quarvo

// The popup: it covers the host's window, and lies in its overlay. In a wide window it is a card, and the rest is
// dimmed.
T.Popup {
    id: root

    property alias surface: parts
    property alias offersAlternative: parts.offersAlternative
    // The host's window, but for what the on-screen keyboard covers.
    readonly property real keyboardHeight: Qt.inputMethod.visible && parts.isCharVerify ? Qt.inputMethod.keyboardRectangle.height : 0
    readonly property bool isCard: geometry.isCard
    readonly property rect screen: geometry.screen

    function display(): void {
        open();
        root.contentItem.forceActiveFocus(Qt.PopupFocusReason);
        if (!QuarvoLook.isMotionReduced)
            unfold.restart();
    }

    closePolicy: T.Popup.NoAutoClose
    focus: true
    height: parent ? parent.height : 0
    margins: 0
    modal: true
    padding: 0
    width: parent ? parent.width : 0

    onClosed: parts.closeRequested()

    QuarvoPopupGeometry {
        id: geometry

        height: root.height - root.keyboardHeight
        width: root.width
    }

    background: Item {
        Rectangle {
            anchors.fill: parent
            color: "#66000000"
            visible: root.isCard
        }
        Rectangle {
            color: QuarvoLook.surface
            height: root.screen.height
            radius: root.isCard ? 16 : 0
            width: root.screen.width
            x: root.screen.x
            y: root.screen.y
        }
    }
    contentItem: FocusScope {
        id: content

        Accessible.name: QuarvoLook.text("accessibleDialog", QuarvoLook.language)
        Accessible.role: Accessible.Dialog
        LayoutMirroring.childrenInherit: true
        LayoutMirroring.enabled: false
        focus: true

        Keys.onBackPressed: parts.closeRequested()
        Keys.onEscapePressed: parts.closeRequested()

        MouseArea {
            anchors.fill: parent

            onClicked: event => {
                const isBeside = event.x < root.screen.x || event.x > root.screen.x + root.screen.width || event.y < root.screen.y || event.y > root.screen.y + root.screen.height;
                if (root.isCard && isBeside && Quarvo.popupClosesOnOutsideClick)
                    parts.closeRequested();
            }
        }
        DrawingParts {
            id: parts

            contentWidth: Math.min(width, 414)
            height: root.screen.height
            traceArea: Qt.rect(0, 0, width, height)
            width: root.screen.width
            x: root.screen.x
            y: root.screen.y

            transform: Scale {
                id: fold

                origin.y: parts.height / 2
            }
        }
        IconButton {
            ground: "black"
            height: 32
            inset: 9
            objectName: "closeButton"
            picture: "qv_draw_close"
            textKey: "accessibleClose"
            width: 32
            x: root.screen.x + root.screen.width - width
            y: root.screen.y

            onClicked: parts.closeRequested()
        }
        Line {
            color: QuarvoLook.supportText
            horizontalAlignment: Text.AlignRight
            objectName: "supportLabel"
            pixelSize: 12
            text: QuarvoLook.text("support", QuarvoLook.language)
            width: Math.min(implicitWidth, root.screen.width - 20)
            x: root.screen.x + root.screen.width - 10 - width
            y: root.screen.y + root.screen.height - 5 - height
        }
        NumberAnimation {
            id: unfold

            duration: 250
            easing.type: Easing.InOutQuad
            from: 0
            property: "yScale"
            target: fold
            to: 1
        }
    }
}
