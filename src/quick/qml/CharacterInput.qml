import QtQuick
import QtQuick.Templates as T
import Quarvo

// The strip on which the characters of the picture are typed.
Rectangle {
    id: root

    required property QuarvoSurface surface

    function send() {
        InputMethod.commit();
        const characters = field.text;
        if (characters === "")
            return;
        field.focus = false;
        root.surface.answer(characters);
        field.clear();
    }

    color: QuarvoLook.strip

    QuarvoMark {
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.right: parent.right
        anchors.rightMargin: 160
        anchors.verticalCenter: parent.verticalCenter
        color: field.activeFocus ? QuarvoLook.accent : QuarvoLook.fieldBorder
        cornerRadius: 3
        fill: QuarvoLook.field
        height: 30
        kind: QuarvoMark.Box
        lineWidth: field.activeFocus ? 2 : 0.5

        T.TextField {
            id: field

            Accessible.name: QuarvoLook.text("accessibleAnswer", QuarvoLook.language)
            anchors.fill: parent
            anchors.leftMargin: 5
            anchors.rightMargin: 5
            clip: true
            color: QuarvoLook.fieldText
            enabled: root.surface.hasPicture && !root.surface.isAnswerChecked
            font.family: QuarvoLook.font(15, QuarvoLook.textScale).family
            font.pixelSize: Math.min(22, Math.round(15 * QuarvoLook.textScale))
            inputMethodHints: Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
            leftPadding: 2
            objectName: "characterField"
            rightPadding: 2
            selectByMouse: true
            selectedTextColor: "white"
            selectionColor: QuarvoLook.accent
            verticalAlignment: Text.AlignVCenter

            EnterKey.type: Qt.EnterKeyDone
            // The key only ends typing; it never sends.
            Keys.onEnterPressed: field.focus = false
            Keys.onReturnPressed: field.focus = false

            QuarvoText {
                alignment: Qt.AlignLeft
                anchors.fill: parent
                anchors.leftMargin: 2
                anchors.rightMargin: 2
                color: QuarvoLook.placeholder
                pixelSize: 14
                text: QuarvoLook.text("characterCaptchaHolder", QuarvoLook.language)
                visible: field.text === "" && field.preeditText === ""
            }
        }
    }
    StripButton {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        height: 30
        isBusy: root.surface.isAnswerChecked
        objectName: "doneButton"
        textKey: "done"
        width: 80

        onClicked: {
            if (!isBusy)
                root.send();
        }
    }
}
