import QtQuick
import Quarvo

// A button that opens the popup where the click is not enough.
Window {
    id: window

    color: "white"
    height: 640
    title: "Button"
    visible: true
    width: 480

    Component.onCompleted: {
        // The local service, started by: quarvo-sandbox --port 8300
        Quarvo.addresses = Quarvo.serviceAt("http://127.0.0.1:8300");
        Quarvo.vid = "test-draw";
        Quarvo.scene = "login";
    }

    VerifyButton {
        anchors.centerIn: parent
        radius: 6

        onFailed: error => {
            if (error.code === VerifyError.NotConnected)
                console.warn("offline");
        }
        onPassed: token => console.info("send this to your server:", token)
    }
}
