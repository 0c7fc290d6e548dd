import QtQuick
import QtQuick.Templates as T

// A control of the captcha: Return clicks it as Space does, and a ring shows where the keyboard is.
T.AbstractButton {
    id: root

    property bool hasRing: true
    property alias cursorShape: pointer.cursorShape
    property bool wasReachedByKeys
    readonly property bool showsHover: root.hovered && root.enabled && !root.down

    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Keys.onEnterPressed: root.clicked()
    Keys.onReturnPressed: root.clicked()
    // One that was disabled for a while gets the keyboard back, but for a reason that shows no ring.
    onEnabledChanged: {
        if (root.enabled && root.activeFocus && root.wasReachedByKeys)
            root.focusReason = Qt.TabFocusReason;
    }
    onVisualFocusChanged: {
        if (root.enabled)
            root.wasReachedByKeys = root.visualFocus;
    }

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
