import QtQuick
import Quarvo

// A panel in the host's own window.
Window {
    id: window

    color: "white"
    height: 400
    title: "Panel"
    visible: true
    width: 480

    Component.onCompleted: {
        // The local service, started by: quarvo-sandbox --port 8300
        Quarvo.addresses = Quarvo.serviceAt("http://127.0.0.1:8300");
        Quarvo.vid = "test-draw";
        Quarvo.scene = "comment";
    }

    DrawingPanel {
        anchors.centerIn: parent

        onFailed: error => console.warn(error.domain, error.code)
        onPassed: token => console.info("send this to your server:", token)
    }
}
