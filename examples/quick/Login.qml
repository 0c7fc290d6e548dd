import QtQuick
import QtQuick.Window

// "verification" is the QVInvisibleManager that main() made.
Window {
    id: window

    property string message

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
        color: area.pressed ? "#2f6fd0" : "#418dfb"
        activeFocusOnTab: true

        Accessible.role: Accessible.Button
        Accessible.name: label.text
        Accessible.onPressAction: verification.startInsivible()
        Keys.onSpacePressed: verification.startInsivible()

        Text {
            id: label

            anchors.centerIn: parent
            color: "white"
            text: "Log in"
        }
        MouseArea {
            id: area

            anchors.fill: parent
            onClicked: verification.startInsivible()
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
            window.message = "Welcome";
        }
        function onClosed() {
            window.message = "";
        }
    }
}
