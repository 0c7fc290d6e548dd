// Pictures as a hostile server may send them.
#include "fuzz/FuzzInput.h"
#include "image/QVImageDecoder.h"

#include <QImage>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Broken pictures are told of by Qt's plugins at length.
    static const auto silent =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    Q_UNUSED(silent)
    const QImage image = qv_decodedImage(FuzzInput(data, size).rest());
    if (image.isNull())
        return 0;
    fuzzRequire(qint64(image.width()) * image.height() <= (16 << 20));
    fuzzRequire(image.format() == QImage::Format_RGB32 ||
                image.format() == QImage::Format_ARGB32_Premultiplied);
    return 0;
}
