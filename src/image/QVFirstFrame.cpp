#include "image/QVFirstFrame.h"

#include "image/QVGifFrame.h"
#include "image/QVJpegFrame.h"
#include "image/QVPngFrame.h"
#include "image/QVWebPFrame.h"

QVFirstFrame QVFirstFrame::ofFile(QByteArrayView file)
{
    QVFirstFrame frame;
    if (file.startsWith("\x89PNG\r\n\x1a\n"))
        frame = {QByteArrayLiteral("png"), qv_pngFrame(file)};
    else if (file.startsWith("\xff\xd8\xff"))
        frame = {QByteArrayLiteral("jpeg"), qv_jpegFrame(file)};
    else if (file.startsWith("GIF87a") || file.startsWith("GIF89a"))
        frame = {QByteArrayLiteral("gif"), qv_gifFrame(file)};
    else if (file.size() >= 12 && file.startsWith("RIFF") && file.sliced(8).startsWith("WEBP"))
        frame = {QByteArrayLiteral("webp"), qv_webPFrame(file)};
    return frame.bytes.isEmpty() ? QVFirstFrame() : frame;
}
