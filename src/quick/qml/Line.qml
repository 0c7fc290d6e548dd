import QtQuick
import Quarvo

// A text that shrinks down to a readable size, and is cut off where it still does not fit.
Text {
    id: root

    property int pixelSize: 14
    property int mostLines: 1
    property bool hasShadow

    elide: Text.ElideRight
    font: QuarvoLook.font(root.pixelSize, QuarvoLook.textScale)
    fontSizeMode: Text.Fit
    horizontalAlignment: Text.AlignHCenter
    maximumLineCount: root.mostLines
    minimumPixelSize: 12
    style: root.hasShadow ? Text.Raised : Text.Normal
    styleColor: "#60000000"
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
    wrapMode: root.mostLines > 1 ? Text.Wrap : Text.NoWrap
}
