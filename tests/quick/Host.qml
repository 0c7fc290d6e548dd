import QtQuick
import Quarvo

Window {
    id: root

    required property QtObject log
    readonly property list<string> reasons: ["User", "HostReset", "WindowGone", "Replaced"]

    readonly property QtObject settings: Quarvo

    height: 600
    visible: true
    width: 700

    Item {
        id: before

        activeFocusOnTab: true
        focus: true
        height: 20
        objectName: "before"
        width: 20
    }
    Loader {
        active: false
        objectName: "buttonLoader"
        sourceComponent: Component {
            Item {
                VerifyButton {
                    height: 44
                    objectName: "button"
                    width: 300
                    x: 100
                    y: 500

                    onAlternativeRequested: root.log.say("alternative")
                    onClosed: reason => root.log.say("closed " + root.reasons[reason])
                    onExpired: root.log.say("expired")
                    onFailed: error => root.log.say("failed " + error.code)
                    onOutageStarted: root.log.say("outage")
                    onPassed: token => root.log.say("passed " + token)
                    onPopupFailed: error => root.log.say("in popup " + error.code)
                    onPopupOpened: root.log.say("popup")
                    onStatusChanged: root.log.say("[" + status + "]")
                }
            }
        }
    }
    Loader {
        active: false
        objectName: "invisibleLoader"
        sourceComponent: Component {
            Item {
                InvisibleVerification {
                    animation: false
                    objectName: "invisible"

                    onAlternativeRequested: root.log.say("alternative")
                    onClosed: reason => root.log.say("closed " + root.reasons[reason])
                    onExpired: root.log.say("expired")
                    onFailed: error => root.log.say("failed " + error.code)
                    onOutageStarted: root.log.say("outage")
                    onPassed: token => root.log.say("passed " + token)
                    onPopupFailed: error => root.log.say("in popup " + error.code)
                    onPopupOpened: root.log.say("popup")
                }
            }
        }
    }
    Loader {
        active: false
        objectName: "panelLoader"
        sourceComponent: Component {
            Item {
                DrawingPanel {
                    height: 300
                    objectName: "panel"
                    width: 414
                    x: 20
                    y: 60

                    onAlternativeRequested: root.log.say("alternative")
                    onExpired: root.log.say("expired")
                    onFailed: error => root.log.say("failed " + error.code)
                    onOutageStarted: root.log.say("outage")
                    onPassed: token => root.log.say("passed " + token)
                    onReady: root.log.say("ready")
                    onWrongAnswer: root.log.say("wrong")
                }
            }
        }
    }
}
