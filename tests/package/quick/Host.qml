import QtQuick
import Quarvo

Window {
    height: 400
    visible: true
    width: 400

    Component.onCompleted: {
        Quarvo.addresses = Quarvo.serviceAt(Qt.application.arguments[2]);
        Quarvo.vid = "test-pass";
        verification.start();
    }

    VerifyButton {
        id: button

        anchors.centerIn: parent
    }
    InvisibleVerification {
        id: verification

        onFailed: error => {
            console.info("failed", error.domain);
            Qt.exit(1);
        }
        onPassed: token => {
            console.info("text", button.text);
            console.info("token", token);
            Qt.quit();
        }
    }
}
