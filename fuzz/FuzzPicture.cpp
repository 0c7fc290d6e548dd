// Pictures of a hostile server.
#include "fuzz/FuzzInput.h"
#include "image/QVFirstFrame.h"
#include "image/QVImageDecoder.h"
#include "image/QVPictureDevice.h"
#include "image/QVPictureSize.h"

#include <QBuffer>
#include <QImageReader>

#include <sys/resource.h>

using namespace std::chrono_literals;

namespace {

constexpr qint64 mostMemory = 64 << 20;
constexpr auto mostTime = 2s;

/// The highest memory use of this process so far, in bytes.
qint64 peakMemory()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) << 10;
}

/// The first frame of \a file. Reducing that once more must not change it.
QVFirstFrame reduced(const QByteArray &file)
{
    QVFirstFrame frame = QVFirstFrame::ofFile(file);
    const QVFirstFrame again = QVFirstFrame::ofFile(frame.bytes);
    fuzzRequire(frame.format == again.format && frame.bytes == again.bytes);
    fuzzRequire(frame.bytes.size() <= file.size() + 2);
    return frame;
}

/// Whether Qt alone decodes it to a picture of an allowed size.
bool isPicture(QVFirstFrame frame)
{
    QBuffer buffer(&frame.bytes);
    const QImage image = QImageReader(&buffer, frame.format).read();
    return !frame.format.isEmpty() && qv_isPictureSizeAllowed(image.width(), image.height());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Qt's plugins log many messages about broken pictures.
    static const auto silent =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    // Plugins are loaded in advance, so that their cost does not count.
    static const bool isReady = qv_decoderReads("png") && qv_decoderReads("jpeg") && qv_decoderReads("gif") &&
                                qv_decoderReads("webp");
    Q_UNUSED(silent)
    fuzzRequire(isReady);

    const QByteArray file = fuzzBytes(data, size);
    const QVFirstFrame frame = reduced(file);
    const qint64 memory = peakMemory();
    const auto start = qv_processorTime();
    const QImage image = qv_decodedImage(file);
    const auto time = qv_processorTime() - start;
    fuzzRequire(time < mostTime);
    fuzzRequire(peakMemory() - memory <= mostMemory + image.sizeInBytes());
    if (image.isNull()) {
        fuzzRequire(time > QVPictureDevice::limit / 2 || !isPicture(frame));
        return 0;
    }
    fuzzRequire(qv_isPictureSizeAllowed(image.width(), image.height()));
    fuzzRequire(image.format() == QImage::Format_RGB32 ||
                image.format() == QImage::Format_ARGB32_Premultiplied);
    return 0;
}
