// A Loader of Qt 6.4 takes no component that is bound.
// qmllint disable unqualified
import QtQuick
import Quarvo

Window {
    id: root

    readonly property list<string> reasons: ["User", "HostReset", "WindowGone", "Replaced"]
    readonly property QtObject settings: Quarvo

    // What is heard, in the words of the other front-end's tests.
    signal said(text: string)

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

                    onAlternativeRequested: root.said("alternative")
                    onClosed: reason => root.said("closed " + root.reasons[reason])
                    onExpired: root.said("expired")
                    onFailed: error => root.said("failed " + error.code)
                    onOutageStarted: root.said("outage")
                    onPassed: token => root.said("passed " + token)
                    onPopupFailed: error => root.said("in popup " + error.code)
                    onPopupOpened: root.said("popup")
                    onStatusChanged: root.said("[" + status + "]")
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

                    onAlternativeRequested: root.said("alternative")
                    onClosed: reason => root.said("closed " + root.reasons[reason])
                    onExpired: root.said("expired")
                    onFailed: error => root.said("failed " + error.code)
                    onOutageStarted: root.said("outage")
                    onPassed: token => root.said("passed " + token)
                    onPopupFailed: error => root.said("in popup " + error.code)
                    onPopupOpened: root.said("popup")
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
                    vid: "".trim()
                    width: 414
                    x: 20
                    y: 60

                    onAlternativeRequested: root.said("alternative")
                    onExpired: root.said("expired")
                    onFailed: error => root.said("failed " + error.code)
                    onOutageStarted: root.said("outage")
                    onPassed: token => root.said("passed " + token)
                    onReady: root.said("ready")
                    onWrongAnswer: root.said("wrong")
                }
            }
        }
    }
}
