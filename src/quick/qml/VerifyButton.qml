import QtQuick
import QtQuick.Templates as T
import Quarvo

/*!
    A button that verifies its user: by the click alone, or in a popup in which the user draws.

    Each attempt ends in exactly one of passed(), failed() and closed().
*/
T.AbstractButton {
    id: root

    // The verification id and the scene; empty stands for those of Quarvo.
    property alias vid: verification.vid
    property alias scene: verification.scene
    // Whether popups offer another way, which alternativeRequested() tells.
    property alias offersAlternative: verification.offersAlternative
    // One of VerifyStatus.
    property alias status: verification.status
    property real radius: 0
    readonly property real paintedRadius: Math.min(root.radius, Math.min(root.width, root.height) / 2)

    // The user has passed; the token is for the host's own server.
    signal passed(token: string)
    // The service could not be asked or refused; the button shows the error's domain.
    signal failed(error: var)
    // The attempt ended without a result; the reason is one of CloseReason.
    signal closed(reason: int)
    // Something failed inside the popup, where the user may try again. The attempt goes on.
    signal popupFailed(error: var)
    signal popupOpened
    signal outageStarted
    // The time of the last token is up. The button is ready again.
    signal expired
    // The user asks for another way. The attempt goes on until reset().
    signal alternativeRequested

    // Closes an open popup and makes the button ready for a new attempt.
    function reset(): void {
        verification.reset();
    }

    function clickByKey(event: var): void {
        if (!event.isAutoRepeat)
            verification.clickByKey(root);
    }

    Accessible.name: root.text
    Accessible.role: Accessible.Button
    // While it is under way, and once it has passed, pointers go through to what lies below.
    containmentMask: verification.takesInput ? null : nowhere
    focusPolicy: Qt.StrongFocus
    font.pixelSize: Math.round(15 * QuarvoLook.textScale)
    hoverEnabled: true
    implicitHeight: Math.round(44 * QuarvoLook.textScale)
    implicitWidth: 300
    text: verification.text

    background: Rectangle {
        readonly property color ground: verification.status === VerifyStatus.Passed ? QuarvoLook.successBar : verification.status === VerifyStatus.Failed ? QuarvoLook.errorBar : QuarvoLook.accent

        color: root.enabled ? ground : Qt.rgba(ground.r, ground.g, ground.b, 0.5)
        radius: root.paintedRadius

        Rectangle {
            anchors.fill: parent
            color: root.hovered && root.enabled && verification.takesInput ? "#1effffff" : "transparent"
            radius: root.paintedRadius
        }
    }
    contentItem: Item {
        LayoutMirroring.childrenInherit: true
        LayoutMirroring.enabled: false

        QuarvoMark {
            id: ripple

            anchors.fill: parent
            color: "transparent"
            cornerRadius: root.paintedRadius
            fill: "#33ffffff"
            visible: spread.running

            NumberAnimation on radius {
                id: spread

                duration: QuarvoMeasure.RippleDuration
                from: 0.1
                running: false
                // The diagonal reaches the far corner from any point.
                to: Math.hypot(root.width, root.height)
            }
        }
        StatusRing {
            height: parent.height
            objectName: "statusRing"
            radius: root.paintedRadius
            status: verification.status
            width: 40
        }
        QuarvoText {
            alignment: Qt.AlignLeft
            anchors.fill: parent
            anchors.leftMargin: 50
            anchors.rightMargin: 10
            font: root.font
            hasShadow: true
            mostLines: 2
            text: root.text
        }
    }

    Keys.onEnterPressed: event => root.clickByKey(event)
    Keys.onReturnPressed: event => root.clickByKey(event)
    Keys.onSelectPressed: event => root.clickByKey(event)
    onClicked: verification.click()
    onPressedChanged: {
        if (!pressed) {
            // A click may follow.
            Qt.callLater(verification.leave);
            return;
        }
        if (!verification.takesInput)
            return;
        ripple.offset = Qt.point(root.pressX - root.width / 2, root.pressY - root.height / 2);
        if (!QuarvoLook.isMotionReduced)
            spread.restart();
        verification.press();
    }

    QtObject {
        id: nowhere

        function contains(point: point): bool {
            return false;
        }
    }
    QuarvoClick {
        id: verification

        onAlternativeRequested: root.alternativeRequested()
        onClosed: reason => root.closed(reason)
        onExpired: root.expired()
        onFailed: error => root.failed(error)
        onOutageStarted: root.outageStarted()
        onPassed: token => root.passed(token)
        onPopupFailed: error => root.popupFailed(error)
        onPopupOpened: root.popupOpened()
        onStatusChanged: {
            if (isNews)
                QuarvoLook.announce(news);
        }
    }
    Item {
        id: news

        Accessible.ignored: !verification.isNews
        Accessible.name: root.text
        Accessible.role: QuarvoLook.messageRole
        anchors.fill: parent
    }
    HoverHandler {
        cursorShape: verification.takesInput ? Qt.PointingHandCursor : Qt.ArrowCursor
    }
    FocusRing {
        control: root
        isByKeyboard: root.visualFocus
        // On a button in the accent colour.
        line: "#aa000000"
        radius: root.paintedRadius
    }
}
