import QtQuick
import QtQuick.Controls.Basic
import Quarvo

// A login that asks for a verification only when it needs one.
ApplicationWindow {
    id: window

    height: 560
    title: "Invisible"
    visible: true
    width: 640

    Component.onCompleted: {
        // The local service, started by: quarvo-sandbox --port 8300
        Quarvo.addresses = Quarvo.serviceAt("http://127.0.0.1:8300");
        Quarvo.vid = "test-draw";
        Quarvo.scene = "login";
    }

    InvisibleVerification {
        id: verification

        onClosed: logIn.enabled = true
        onFailed: error => {
            message.text = error.domain;
            logIn.enabled = true;
        }
        onPassed: token => {
            // The user is in only when the server, having asked the service about the token, says so.
            console.info("send this to your server:", token);
            message.text = "Checking with the server…";
        }
    }
    Column {
        anchors.centerIn: parent
        spacing: 12

        Button {
            id: logIn

            anchors.horizontalCenter: parent.horizontalCenter
            text: "Log in"

            onClicked: {
                enabled = false;
                verification.start();
            }
        }
        Label {
            id: message
        }
    }
}
