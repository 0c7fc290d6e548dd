#include "image/QVImageDecoder.h"

#include <QBuffer>
#include <QImageIOHandler>
#include <QImageReader>

namespace {

// 64 MiB once decoded. Checked before the decoder allocates: Qt's own limit is the whole process's,
// which a host may have lifted.
constexpr qint64 maximumPixels = 16 << 20;

// Told apart here, because Qt would load and ask every image plugin it finds, and some of them read
// formats that can do much more than show a picture.
QByteArray formatOf(const QByteArray &bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return QByteArrayLiteral("png");
    if (bytes.startsWith("\xff\xd8\xff"))
        return QByteArrayLiteral("jpeg");
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"))
        return QByteArrayLiteral("gif");
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return QByteArrayLiteral("webp");
    return {};
}

bool isDecodable(QSize size)
{
    return !size.isEmpty() && qint64(size.width()) * size.height() <= maximumPixels;
}

} // namespace

QImage qv_decodedImage(const QByteArray &bytes)
{
    const QByteArray format = formatOf(bytes);
    if (format.isEmpty())
        return {};
    QBuffer buffer;
    buffer.setData(bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        return {};
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    if (!isDecodable(reader.size()))
        return {};
    const QImage image = reader.read();
    // A decoder may tell one size and make another of a broken header.
    if (!isDecodable(image.size()))
        return {};
    // Painting converts other formats anew each time, on the user-interface thread.
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

bool qv_decoderReads(const QByteArray &format)
{
    QBuffer empty;
    return QImageReader(&empty, format).supportsOption(QImageIOHandler::Size);
}
