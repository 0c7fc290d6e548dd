import QtQuick
import QtQuick.Templates as T
import Quarvo

// A control of the captcha: Return clicks it as Space does, and a ring shows where the keyboard is.
T.AbstractButton {
    id: root

    property bool hasRing: true
    property alias cursorShape: pointer.cursorShape

    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Keys.onEnterPressed: root.clicked()
    Keys.onReturnPressed: root.clicked()

    HoverHandler {
        id: pointer

        cursorShape: Qt.PointingHandCursor
    }
    FocusRing {
        control: root
        isByKeyboard: root.visualFocus && root.hasRing
        // Over whatever the control shows.
        z: 2
    }
}
