#include "image/QVImageDecoder.h"

#include "image/QVFirstFrame.h"
#include "image/QVPictureDevice.h"
#include "image/QVPictureSize.h"

#include <QBuffer>
#include <QImageIOHandler>
#include <QImageReader>

#include <cstring>
#include <new>

namespace {

QImage read(const QVFirstFrame &frame, const std::stop_token &stop)
{
    QVPictureDevice device(frame.bytes, stop);
    QImageReader reader(&device, frame.format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    // A decoder that was stopped may return the part that it has read.
    return device.isStopped() ? QImage() : image;
}

/// Converts \a image to a format that need not be converted each time it is painted on the user-interface
/// thread.
QImage paintable(const QImage &image)
{
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    if (image.format() == format)
        return image;
    // Row by row: Qt would convert a larger picture on the threads of its global pool, and wait there behind
    // the work of the host.
    QImage result(image.size(), format);
    for (int y = 0; y < result.height(); ++y) {
        QImage row(image.constScanLine(y), image.width(), 1, image.bytesPerLine(), image.format());
        row.setColorTable(image.colorTable());
        row.convertTo(format);
        std::memcpy(result.scanLine(y), row.constScanLine(0), std::size_t(result.bytesPerLine()));
    }
    return result;
}

} // namespace

QImage qv_decodedImage(const QByteArray &bytes, const std::stop_token &stop)
{
    try {
        const QVFirstFrame frame = QVFirstFrame::ofFile(bytes);
        const QImage image = frame.format.isEmpty() ? QImage() : read(frame, stop);
        // The decoded size of a broken file may differ from the size in its header.
        return qv_isPictureSizeAllowed(image.width(), image.height()) ? paintable(image) : QImage();
    } catch (const std::bad_alloc &) {
        return {};
    }
}

bool qv_decoderReads(const QByteArray &format)
{
    QBuffer empty;
    return QImageReader(&empty, format).supportsOption(QImageIOHandler::Size);
}
