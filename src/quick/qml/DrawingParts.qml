import QtQuick
import Quarvo

// The drawing captcha: the picture with its bars, buttons, badges and stroke, and the strip for characters. A
// panel and a popup lay it out, each in its own way.
QuarvoSurface {
    id: root

    property bool offersAlternative
    // How wide the content is, in which the picture lies.
    property real contentWidth
    readonly property rect contentArea: Qt.rect(content.x, content.y, content.width, content.height)
    readonly property real alternativeHeight: root.offersAlternative ? QuarvoMeasure.AlternativeHeight : 0

    belowContent: root.alternativeHeight
    keyTarget: picture
    picture: picture
    stroke: stroke

    // The parts of the picture and what is drawn on it lie alike in every language.
    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: false
    onIsDrawingEnabledChanged: picture.takeTabs()
    onPictureExpired: {
        expiry.isNews = true;
        QuarvoLook.announce(expiry);
    }
    onContentAreaChanged: root.refreshPen()
    onReady: expiry.isNews = false

    QuarvoText {
        Accessible.name: root.caption
        Accessible.role: Accessible.StaticText
        anchors.bottom: content.top
        anchors.bottomMargin: QuarvoMeasure.CaptionGap
        color: QuarvoLook.caption
        objectName: "caption"
        pixelSize: 17
        text: root.caption
        visible: root.caption !== ""
        widest: Math.max(0, root.contentWidth - 2 * QuarvoMeasure.CloseButtonRoom)
        x: Math.round(content.exactLeft + (root.contentWidth - width) / 2)
    }
    Item {
        id: content

        property real aspect: root.contentAspect
        // Each edge is rounded by itself, as those of a widget are.
        readonly property real exactHeight: root.contentWidth * aspect
        readonly property real exactLeft: (parent.width - root.contentWidth) / 2
        readonly property real exactTop: (parent.height - exactHeight) / 2 - root.contentLift

        height: Math.round(exactTop + exactHeight) - y
        width: Math.round(exactLeft + root.contentWidth) - x
        x: Math.round(exactLeft)
        y: Math.round(exactTop)

        Behavior on aspect {
            enabled: !QuarvoLook.isMotionReduced && root.hasPicture

            NumberAnimation {
                duration: QuarvoMeasure.ChangeDuration
                easing: QuarvoLook.easeInEaseOut
            }
        }

        Rectangle {
            anchors.fill: parent
            color: QuarvoLook.strip
            visible: root.isCharVerify
        }
        Rectangle {
            id: ground

            readonly property real covered: strip.visible ? Math.max(0, y + height - strip.y) : 0

            clip: true
            color: QuarvoLook.picture
            height: Math.round(content.exactTop + root.contentWidth * root.pictureAspect) - content.y
            width: parent.width

            QuarvoPicture {
                id: picture

                Accessible.description: root.isLoading ? QuarvoLook.text("accessibleLoading", QuarvoLook.language) : root.isDrawingEnabled ? QuarvoLook.text("accessiblePen", QuarvoLook.language) : ""
                Accessible.focusable: root.isDrawingEnabled
                Accessible.name: QuarvoLook.text(root.isCharVerify ? "accessibleAnswer" : "accessiblePicture", QuarvoLook.language)
                Accessible.role: Accessible.Graphic
                anchors.fill: parent
                objectName: "picture"

                // Not a binding: the focus stays where it is while an answer is being checked.
                function takeTabs(): void {
                    if (!activeFocus)
                        activeFocusOnTab = root.isDrawingEnabled;
                }

                onActiveFocusChanged: takeTabs()
            }
            LoadingDots {
                anchors.centerIn: parent
                objectName: "loadingDots"
                visible: root.isLoading
            }
            Bar {
                id: promptBar

                bar: root.prompt
                covered: ground.covered
                ground: QuarvoLook.promptBar
                objectName: "promptBar"
                picture: "qv_draw_edit"
                textColor: QuarvoLook.promptText
            }
            Bar {
                bar: root.error
                covered: ground.covered
                ground: QuarvoLook.errorBar
                objectName: "errorBar"
                picture: "qv_draw_error"

                onClicked: root.retry()
            }
            Bar {
                bar: root.success
                covered: ground.covered
                ground: QuarvoLook.successBar
                objectName: "successBar"
                picture: "qv_draw_success"
            }
            Rectangle {
                color: QuarvoLook.badge
                height: outageText.implicitHeight + 5
                objectName: "outageBadge"
                visible: root.isOutage
                width: outageText.implicitWidth + 10

                QuarvoText {
                    id: outageText

                    Accessible.name: text
                    Accessible.role: Accessible.StaticText
                    anchors.fill: parent
                    isItalic: true
                    pixelSize: 12
                    text: QuarvoLook.text("outage", QuarvoLook.language)
                    // Less the ground's margins.
                    widest: QuarvoMeasure.WidestBadge - 10
                }
            }
        }
        CharacterInput {
            id: strip

            anchors.bottom: parent.bottom
            height: QuarvoMeasure.InputHeight
            surface: root
            visible: root.isCharVerify
            width: parent.width
        }
        IconButton {
            id: refreshButton

            anchors.right: helpButton.left
            enabled: root.isRefreshEnabled
            height: QuarvoMeasure.ControlSide
            objectName: "refreshButton"
            picture: "qv_draw_refresh"
            textKey: "accessibleRefresh"
            visible: root.isRefreshShown
            width: QuarvoMeasure.ControlSide

            onClicked: {
                spin.restart();
                root.refresh();
            }

            RotationAnimation {
                id: spin

                duration: QuarvoLook.isMotionReduced ? 0 : QuarvoMeasure.SpinDuration
                from: 0
                property: "rotation"
                target: refreshButton.contentItem
                to: 180

                onStopped: refreshButton.contentItem.rotation = 0
            }
        }
        IconButton {
            id: helpButton

            anchors.right: parent.right
            height: QuarvoMeasure.ControlSide
            objectName: "helpButton"
            picture: "qv_draw_help"
            textKey: "accessibleHelp"
            visible: root.isHelpShown
            width: visible ? QuarvoMeasure.ControlSide : 0

            onClicked: root.help()
        }
        AdButton {
            objectName: "adButton"
            word: root.adWord

            onClicked: root.openAdvertisement()
        }
        FocusRing {
            anchors.fill: ground
            control: picture
        }
    }
    Rectangle {
        anchors.horizontalCenter: content.horizontalCenter
        anchors.top: content.bottom
        color: QuarvoLook.strip
        height: root.alternativeHeight
        visible: root.offersAlternative
        width: content.width

        StripButton {
            anchors.fill: parent
            enabled: !root.success.isShown
            leftPadding: 10
            objectName: "alternativeButton"
            pixelSize: 13
            rightPadding: 10
            textKey: "alternative"

            onClicked: root.alternativeRequested()
        }
    }
    Item {
        id: expiry

        property bool isNews

        Accessible.ignored: !expiry.isNews
        Accessible.name: QuarvoLook.text("accessibleExpired", QuarvoLook.language)
        Accessible.role: QuarvoLook.messageRole
        anchors.fill: parent
    }
    QuarvoStroke {
        id: stroke

        anchors.fill: parent
        color: QuarvoLook.accent
        objectName: "stroke"
    }
    KeyPen {
        anchors.fill: parent
        barHeight: promptBar.height
        picture: picture
        pictureArea: Qt.rect(content.x, content.y, ground.width, ground.height)
        surface: root
    }
}
