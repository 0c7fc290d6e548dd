import QtQuick
import QtQuick.Templates as T

/*!
    A panel in which the user draws, part of the host's own scene. It asks for its picture by itself, and shows
    what fails, which a tap tries again.

    Between calls of reset() it tells one token. It needs about 400 x 230, and 40 more in height for characters.
*/
T.Control {
    id: root

    // The verification id and the scene; empty stands for those of Quarvo.
    property alias vid: parts.vid
    property alias scene: parts.scene
    // Whether there is another way, below the picture, which alternativeRequested() tells.
    property alias offersAlternative: parts.offersAlternative

    // The user has passed; the token is for the host's own server.
    signal passed(token: string)
    // Something failed. The panel shows it and lets the user start anew.
    signal failed(error: var)
    // A picture is there to be drawn on, or to be read.
    signal ready
    // The service took the answer for wrong. The user may go on.
    signal wrongAnswer
    signal outageStarted
    // The time of the last token is up. The panel lets the user start anew.
    signal expired
    // The user asks for another way. The panel stays as it is.
    signal alternativeRequested

    // Starts anew.
    function reset(): void {
        parts.reset();
    }

    Accessible.role: Accessible.Grouping
    implicitHeight: implicitWidth * 270 / 400 + parts.alternativeHeight
    implicitWidth: 400

    contentItem: DrawingParts {
        id: parts

        contentWidth: Math.max(0, embeddedWidth)
        isEmbedded: true
        // In a panel that is flatter than its content the whole width would make the curve too small to be right.
        traceArea: contentWidth < width ? contentArea : Qt.rect(0, 0, width, height)

        onAlternativeRequested: root.alternativeRequested()
        onExpired: root.expired()
        onFailed: error => root.failed(error)
        onOutageStarted: root.outageStarted()
        onPassed: token => root.passed(token)
        onReady: root.ready()
        onWrongAnswer: root.wrongAnswer()
    }
}
