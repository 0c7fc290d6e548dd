import QtQuick
import QtQuick.Templates as T
import Quarvo

// The popup: it covers the host's window, and lies in its overlay. In a wide window it is a card, and the rest is
// dimmed.
T.Popup {
    id: root

    property alias surface: parts
    property alias offersAlternative: parts.offersAlternative
    readonly property real keyboardHeight: InputMethod.visible && parts.isCharVerify ? InputMethod.keyboardRectangle.height : 0
    readonly property bool isCard: geometry.isCard
    readonly property rect screen: geometry.screen

    function display(): void {
        // The content is the dialog, and has its name.
        root.contentItem.parent.Accessible.ignored = true;
        open();
        root.contentItem.forceActiveFocus(Qt.PopupFocusReason);
        if (!QuarvoLook.isMotionReduced) {
            dimming.restart();
            unfold.restart();
        }
    }

    closePolicy: T.Popup.NoAutoClose
    focus: true
    // The host's window, but for what the on-screen keyboard covers.
    height: parent ? parent.height - root.keyboardHeight : 0
    margins: 0
    modal: true
    padding: 0
    width: parent ? parent.width : 0

    // What the host shows there takes input: its keyboard may be an item of the same window.
    T.Overlay.modal: Item {
        id: modality

        containmentMask: QtObject {
            function contains(point: point): bool {
                return !InputMethod.visible || point.y < modality.height - InputMethod.keyboardRectangle.height;
            }
        }
    }

    onClosed: parts.closeRequested()

    QuarvoPopupGeometry {
        id: geometry

        height: root.height
        width: root.width
    }

    background: Item {
        Rectangle {
            id: dim

            anchors.fill: parent
            color: "#66000000"
        }
        Rectangle {
            color: QuarvoLook.surface
            height: root.screen.height
            radius: root.isCard ? QuarvoMeasure.CardRadius : 0
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

            contentWidth: Math.min(width, QuarvoMeasure.WidestContent)
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
            id: closeButton

            height: 32
            inset: 9
            objectName: "closeButton"
            picture: "qv_draw_close"
            textKey: "accessibleClose"
            width: 32
            x: root.screen.x + root.screen.width - width
            y: root.screen.y

            background: Rectangle {
                color: closeButton.showsHover ? "#3c3c44" : "black"
                radius: 16

                Rectangle {
                    anchors.fill: parent
                    anchors.margins: 2
                    border.color: "white"
                    border.width: 2
                    color: "transparent"
                    radius: 14
                    visible: closeButton.visualFocus
                }
            }

            onClicked: parts.closeRequested()
        }
        QuarvoText {
            Accessible.name: text
            Accessible.role: Accessible.StaticText
            alignment: Qt.AlignRight
            color: QuarvoLook.supportText
            objectName: "supportLabel"
            pixelSize: 12
            text: QuarvoLook.text("support", QuarvoLook.language)
            widest: root.screen.width - 2 * QuarvoMeasure.SupportRight
            x: root.screen.x + root.screen.width - QuarvoMeasure.SupportRight - width
            y: root.screen.y + root.screen.height - QuarvoMeasure.SupportBottom - height
        }
        NumberAnimation {
            id: dimming

            duration: QuarvoMeasure.DimDuration
            from: 0
            property: "opacity"
            target: dim
            to: 1
        }
        NumberAnimation {
            id: unfold

            duration: QuarvoMeasure.UnfoldDuration
            easing: QuarvoLook.usualEasing
            from: 0
            property: "yScale"
            target: fold
            to: 1
        }
    }
}
