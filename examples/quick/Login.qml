import QtQuick
import QtQuick.Window

// "verification" is the QVInvisibleManager that main() has created.
Window {
    id: window

    property string message
    property bool busy

    function start() {
        if (busy)
            return;
        busy = true;
        verification.startInsivible();
    }

    function finish(text) {
        message = text;
        busy = false;
    }

    width: 640
    height: 560
    visible: true
    color: "white"

    Rectangle {
        id: logIn

        objectName: "logIn"
        anchors.centerIn: parent
        width: 200
        height: 44
        radius: 6
        color: area.pressed || window.busy ? "#2f6fd0" : "#418dfb"
        activeFocusOnTab: true

        Accessible.role: Accessible.Button
        Accessible.name: label.text
        Accessible.onPressAction: window.start()
        Keys.onSpacePressed: event => {
            if (!event.isAutoRepeat)
                window.start();
        }

        Text {
            id: label

            anchors.centerIn: parent
            color: "white"
            text: "Log in"
        }
        MouseArea {
            id: area

            anchors.fill: parent
            onClicked: window.start()
        }
    }

    Text {
        anchors.top: logIn.bottom
        anchors.topMargin: 12
        anchors.horizontalCenter: parent.horizontalCenter
        text: window.message
    }

    Connections {
        target: verification

        function onPassed(token) {
            // The user is logged in only after the server has checked the token with the service.
            window.finish("Checking with the server…");
        }
        function onClosed() {
            window.finish("");
        }
    }
}
